#pragma once

#include "office/libreoffice/excel/CalcContent.h"

#include <cstddef>
#include <string>

namespace mergeloom::libreoffice {

/// Returns the text that a cell shows for a text, number or boolean.
std::string textOf(CalcContent& content, std::size_t sheet, const excel::CellPosition& cell);
/// Writes a text into every cell of the area, as a text even if it looks like a number; of merged cells into
/// the first one. Raises kApplicationDefined before anything is written.
void fill(CalcContent& content, std::size_t sheet, const excel::CellArea& area, const std::string& text);

}  // namespace mergeloom::libreoffice
