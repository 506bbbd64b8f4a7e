#pragma once

#include "base/Units.h"
#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/CellAddress.h"

/// Changes of widths and heights. Each raises kApplicationDefined, with a sentence for the user, for a sheet
/// that is protected against them and for a size that no column or row can have.
namespace mergeloom::embedded {

void setColumnWidth(WorkbookContent& content, SheetContent& sheet, const excel::CellArea& area,
                    ColumnWidth width);
void setRowHeight(WorkbookContent& content, SheetContent& sheet, const excel::CellArea& area, Points height);
/// Makes each column of the area as wide as the widest text of the area's cells in it.
void fitColumns(WorkbookContent& content, std::size_t sheetIndex, const excel::CellArea& area);

}  // namespace mergeloom::embedded
