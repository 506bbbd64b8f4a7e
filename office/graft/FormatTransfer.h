#pragma once

#include "office/graft/ExportedFormats.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <tuple>

namespace mergeloom::graft {

/// Adds cell formats to the styles of an original (ECMA-376 Part 1, 18.8). A new format is a copy of one of
/// the original's formats with the difference between two exported formats applied.
class FormatTransfer {
  public:
    /// The original must outlive this object. Raises kFileCouldNotBeRead.
    explicit FormatTransfer(opc::Package& original);

    /// Returns the index of the original's format with the change from one exported format to another. Adds
    /// formats, fonts, fills and borders only if there are no equal ones. Raises Refusal if the workbook has
    /// no styles.
    int changed(int style, const ExportedFormat& former, const ExportedFormat& now);

    /// Writes the part into the package if formats were added.
    void store();

  private:
    [[nodiscard]] pugi::xml_node list(std::string_view name) const;
    [[nodiscard]] std::string own(std::string_view name) const;
    [[nodiscard]] pugi::xml_node itemAt(std::string_view listName, int index) const;
    /// Appends an element to a list unless an equal one is there; returns its index.
    int indexOf(std::string_view listName, pugi::xml_node item);
    /// Returns an element outside of the part's content.
    [[nodiscard]] pugi::xml_node draft(std::string_view name) const;
    [[nodiscard]] pugi::xml_node draftOf(pugi::xml_node item) const;
    void copyInto(pugi::xml_node target, pugi::xml_node exported) const;
    pugi::xml_node requireList(std::string_view name);

    void changeNumberFormat(pugi::xml_node format, const std::string& code);
    void changeFont(pugi::xml_node format, const ExportedFormat& former, const ExportedFormat& now);
    void changeFill(pugi::xml_node format, pugi::xml_node fill);
    void changeBorder(pugi::xml_node format, const ExportedFormat& former, const ExportedFormat& now);
    void changeAttributes(pugi::xml_node format, std::string_view child, pugi::xml_node former,
                          pugi::xml_node now);
    void setFont(pugi::xml_node font, pugi::xml_node property, const std::string& name);

    opc::Package& original_;
    std::unique_ptr<opc::XmlPart> part_;
    std::map<std::tuple<int, int, int>, int> known_;
    bool isChanged_ = false;
};

}  // namespace mergeloom::graft
