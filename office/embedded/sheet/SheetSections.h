#pragma once

#include "office/embedded/sheet/SheetIndex.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// A text that goes into a part at a place.
struct Insertion {
    std::size_t place = 0;
    std::string text{};
};

/// The children of the worksheet element and what was changed in them.
class SheetSections {
  public:
    /// Both must outlive this.
    SheetSections(std::string_view xml, const SheetIndex& index) : xml_(xml), index_(index) {}

    /// All children of a name one after the other, as they stand now.
    [[nodiscard]] std::string text(std::string_view name) const;
    /// What the children of that name were replaced by; nullptr while they are as they were read.
    [[nodiscard]] const std::string* replacement(std::string_view name) const;
    /// Puts a replacement in place of the former one, which comes back; nothing brings back what was read.
    std::optional<std::string> exchange(std::string_view name, std::optional<std::string> xml);

    /// What goes in because the part held no child of that name, in order; also the sheet's data where that
    /// is not empty.
    [[nodiscard]] std::vector<Insertion> insertions(const std::string& newSheetData) const;

  private:
    /// Where the schema has the place of a child that the part does not hold.
    [[nodiscard]] std::size_t placeOf(std::string_view name) const;
    [[nodiscard]] bool isHeld(std::string_view name) const;
    [[nodiscard]] int rankOf(const RootChild& child) const;

    std::string_view xml_;
    const SheetIndex& index_;
    std::map<std::string, std::string, std::less<>> replacements_;
};

}  // namespace mergeloom::embedded
