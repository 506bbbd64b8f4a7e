#pragma once

#include "office/embedded/sheet/SheetPart.h"

#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The pieces of a cell's XML (CT_Cell, ECMA-376 Part 1, 18.3.1.4); missing pieces are empty.
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

/// Splits a cell's XML. The prefix is that of the elements' names, "x:" or empty.
CellXml splitCell(std::string_view cell, std::string_view prefix);

/// Returns the content of a cell. Only the master of a shared formula has its text, and only the first cell
/// of an array formula has its area.
StoredCell readCell(std::string_view cell, std::string_view prefix);

/// Returns the element of a cell's own text.
std::string inlineTextXml(std::string_view text, const std::string& prefix);
/// Returns the XML of a cell with a text of its own. It keeps the attributes and extensions of the former
/// cell except those that describe its content. A new cell is passed as a tag alone.
std::string withText(std::string_view cell, std::string_view text, std::string_view prefix);
/// Returns the XML of a cell with its content replaced. The content is a list of elements, possibly empty,
/// and their type (the attribute t). Keeps the attributes and extensions of the former cell that do not
/// describe its content.
std::string withContent(std::string_view cell, const std::string& type, const std::string& content,
                        std::string_view prefix);
/// Returns the XML of a cell with the stored result of its formula replaced: the element of the value, and
/// the type.
std::string withResult(std::string_view cell, const std::string& type, const std::string& value,
                       std::string_view prefix);
/// Returns the XML of a cell with another index of its format.
std::string withStyle(std::string_view cell, int style);
/// Returns the XML of a cell with its formula element replaced.
std::string withFormula(std::string_view cell, std::string_view formula, std::string_view prefix);

}  // namespace mergeloom::embedded
