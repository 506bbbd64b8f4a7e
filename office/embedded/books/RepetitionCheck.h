#pragma once

#include "office/embedded/books/BookPlaces.h"
#include "office/embedded/books/PartCutter.h"
#include "office/embedded/excel/WorkbookContent.h"

namespace mergeloom::embedded {

/// Adds what is in the way of the repeated rows of a workbook, other than formulas: the protection of their
/// sheet, Excel tables and pivot tables that cannot grow with them.
void addObstacles(WorkbookContent& content, const BookPlaces& places, BookSheets& sheets);

}  // namespace mergeloom::embedded
