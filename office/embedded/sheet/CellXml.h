#pragma once

#include "office/embedded/sheet/SheetPart.h"

#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The pieces of a cell's XML (CT_Cell, ECMA-376 Part 1, 18.3.1.4); those that are not there are empty.
struct CellXml {
    std::string_view tag{};
    std::string_view attributes{};
    std::string_view formula{};  ///< the whole element
    std::string_view formulaAttributes{};
    std::string_view formulaText{};  ///< its raw content
    std::string_view value{};        ///< raw content
    std::string_view inlineText{};   ///< the whole element
    std::string_view extensions{};   ///< the whole element
};

/// Takes a cell's XML apart. The prefix is that of the elements' names, "x:" or empty.
CellXml splitCell(std::string_view cell, std::string_view prefix);

/// What a cell holds. Of a shared formula only its master has the text; the area of an array formula is known
/// to its first cell alone.
StoredCell readCell(std::string_view cell, std::string_view prefix);

/// The XML of a cell with a text of its own. It keeps the attributes and extensions of the former cell, but
/// for those that tell of its content; for a new cell that is a tag alone.
std::string withText(std::string_view cell, std::string_view text, std::string_view prefix);
/// The XML of a cell whose formula was replaced by another element.
std::string withFormula(std::string_view cell, std::string_view formula, std::string_view prefix);

}  // namespace mergeloom::embedded
