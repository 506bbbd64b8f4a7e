#pragma once

#include "office/libreoffice/excel/CalcContent.h"

#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/awt/Size.hpp>
#include <cstddef>

/// Where cells lie on a sheet and how large they are.
namespace mergeloom::libreoffice {

/// 0 for a hidden column.
ColumnWidth columnWidth(CalcContent& content, std::size_t sheet, int column);
Points rowHeight(CalcContent& content, std::size_t sheet, int row);
/// Rounded to whole pixels. These raise kApplicationDefined for a protected sheet and for sizes that a column
/// or row cannot have.
void setColumnWidth(CalcContent& content, std::size_t sheet, const excel::CellArea& area, ColumnWidth width);
void setRowHeight(CalcContent& content, std::size_t sheet, const excel::CellArea& area, Points height);
/// Makes each column as wide as the widest text of the area's cells in it; an empty one stays.
void fitColumns(CalcContent& content, std::size_t sheet, const excel::CellArea& area);

/// In UNO's unit.
css::awt::Point cellPlace(CalcContent& content, std::size_t sheet, const excel::CellPosition& cell);
css::awt::Size blockSize(CalcContent& content, std::size_t sheet, const excel::CellArea& area);

}  // namespace mergeloom::libreoffice
