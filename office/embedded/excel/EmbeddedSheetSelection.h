#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/Selection.h"

#include <memory>

namespace mergeloom::embedded {

/// What is selected in the active sheet: cells, or where it has none the chart that it is.
excel::SelectionPtr selectionOf(const std::shared_ptr<WorkbookContent>& content);

}  // namespace mergeloom::embedded
