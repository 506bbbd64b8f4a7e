#pragma once

#include "automation/DoubleObject.h"
#include "office/model/excel/Forward.h"

/// The objects of a workbook under Excel's own names.
namespace mergeloom::automation {

DispatchPtr excelNames(const excel::NamesPtr& names);
DispatchPtr excelRange(const excel::RangePtr& range);
DispatchPtr excelShapes(const excel::WorksheetPtr& sheet);
DispatchPtr excelSheets(const excel::WorksheetsPtr& sheets);

/// Returns the selection of an application, on which Excel has the members of a range.
DispatchPtr excelSelection(const excel::ApplicationPtr& office);

/// Returns the text of a cell after a value was written into it. Raises an error for a text without an
/// apostrophe, since the double does not recognise numbers and dates as Excel does.
std::string writtenText(const Value& value);

}  // namespace mergeloom::automation
