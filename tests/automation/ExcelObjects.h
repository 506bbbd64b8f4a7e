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

/// Returns what Excel makes of a text that is written into a cell. Raises an error for one without an
/// apostrophe: the double does not guess the numbers and dates that Excel would take it for.
std::string writtenText(const Value& value);

}  // namespace mergeloom::automation
