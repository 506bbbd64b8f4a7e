#pragma once

#include "office/embedded/sheet/SheetIndex.h"
#include "office/embedded/sheet/XmlAttributes.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// The start tag of the worksheet element and the namespaces that it declares.
class SheetRoot {
  public:
    /// Raises BadXml if the element is not in SpreadsheetML's namespace.
    explicit SheetRoot(std::string_view tag);

    [[nodiscard]] bool isStrict() const { return isStrict_; }
    /// Returns the prefix that is declared for a namespace; empty if there is none.
    [[nodiscard]] std::string prefixFor(std::string_view uri) const;
    /// Returns the preferred prefix, with a number appended if it is declared for another namespace.
    [[nodiscard]] std::string freePrefix(std::string_view preferred) const;

    void declare(const std::string& prefix, const std::string& uri);
    void undoDeclaration(const std::string& prefix);

    [[nodiscard]] bool isChanged() const { return declared_ > 0; }
    [[nodiscard]] const XmlTag& tag() const { return tag_; }

  private:
    XmlTag tag_;
    bool isStrict_ = false;
    int declared_ = 0;
};

/// A text to insert into a part.
struct Insertion {
    std::size_t place = 0;
    std::string text{};
};

/// The children of the worksheet element and their replacements.
class SheetSections {
  public:
    /// Both must outlive this object.
    SheetSections(std::string_view xml, const SheetIndex& index) : xml_(xml), index_(index) {}

    /// Returns the current XML of all children of a name, concatenated.
    [[nodiscard]] std::string text(std::string_view name) const;
    /// Returns the replacement of the children of that name; nullptr if they are unchanged.
    [[nodiscard]] const std::string* replacement(std::string_view name) const;
    /// Exchanges the replacement of a child and returns the former one; nothing restores what was read.
    std::optional<std::string> exchange(std::string_view name, std::optional<std::string> xml);

    /// Returns the children to insert because the part contains none of their name, in order, including the
    /// sheet's data unless that is empty.
    [[nodiscard]] std::vector<Insertion> insertions(const std::string& newSheetData) const;

  private:
    /// Returns the place in the schema of a child that the part does not contain.
    [[nodiscard]] std::size_t placeOf(std::string_view name) const;
    [[nodiscard]] bool isPresent(std::string_view name) const;
    [[nodiscard]] int rankOf(const RootChild& child) const;

    std::string_view xml_;
    const SheetIndex& index_;
    std::map<std::string, std::string, std::less<>> replacements_;
};

}  // namespace mergeloom::embedded
