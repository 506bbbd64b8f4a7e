#pragma once

#include "office/libreoffice/excel/CalcContent.h"

#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/awt/Size.hpp>
#include <cstddef>

/// The places and sizes of cells on a sheet.
namespace mergeloom::libreoffice {

/// Returns the width of a column; 0 for a hidden one.
ColumnWidth columnWidth(CalcContent& content, std::size_t sheet, int column);
Points rowHeight(CalcContent& content, std::size_t sheet, int row);
/// Both round to whole pixels. They raise kApplicationDefined for a protected sheet and for sizes that a
/// column or row cannot have.
void setColumnWidth(CalcContent& content, std::size_t sheet, const excel::CellArea& area, ColumnWidth width);
void setRowHeight(CalcContent& content, std::size_t sheet, const excel::CellArea& area, Points height);
/// Fits each column to the widest text of the area's cells in it; an empty one keeps its width.
void fitColumns(CalcContent& content, std::size_t sheet, const excel::CellArea& area);

/// Return the place and the size of cells in UNO's unit.
css::awt::Point cellPlace(CalcContent& content, std::size_t sheet, const excel::CellPosition& cell);
css::awt::Size blockSize(CalcContent& content, std::size_t sheet, const excel::CellArea& area);

}  // namespace mergeloom::libreoffice
