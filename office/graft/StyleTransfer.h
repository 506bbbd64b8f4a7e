#pragma once

#include "office/graft/StyleNames.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>

namespace mergeloom::graft {

/// The styles of an original, to which an export's can be added (CT_Style, ECMA-376 Part 1, 17.7.4.17).
class StyleTransfer {
  public:
    /// Both packages must outlive it. Raises kFileCouldNotBeRead for a damaged part.
    StyleTransfer(opc::Package& original, opc::Package& exported);

    /// Returns the original's id of the style that has an id in the export, by its name. Returns none if the
    /// original has no style of that name.
    [[nodiscard]] std::optional<std::string> idOf(const std::string& exportedId) const;
    /// Does the same, and adds a missing style with those that it is based on. Raises Refusal for a style
    /// that belongs to a list, and for an original without a part of styles.
    std::string require(const std::string& exportedId);
    /// Writes the styles into the original if some were added.
    void store();

  private:
    [[nodiscard]] pugi::xml_node exportedStyle(const std::string& id) const;
    [[nodiscard]] std::string freeId(const std::string& wanted) const;
    void translate(pugi::xml_node style);

    opc::Package& original_;
    StyleNames names_;
    StyleNames exportedNames_;
    std::unique_ptr<opc::XmlPart> own_;  ///< null for an original without styles
    std::unique_ptr<opc::XmlPart> exported_;
};

}  // namespace mergeloom::graft
