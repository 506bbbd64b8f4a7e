#include "app/ExcelStart.h"

#include "app/MappingOptions.h"
#include "app/MappingRefusal.h"
#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/DefinedName.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Worksheet.h"
#include "office/model/excel/Worksheets.h"

#include <functional>

namespace mergeloom {

namespace {

/// Returns true for the errors that Excel raises when nothing has that name.
bool isNotFound(const AutomationError& error) {
    return error.number() == kApplicationDefined || error.number() == kSubscriptOutOfRange;
}

excel::RangePtr rangeOrNone(const std::function<excel::RangePtr()>& find) {
    try {
        return find();
    } catch (const AutomationError& error) {
        if (!isNotFound(error)) throw;
        return nullptr;
    }
}

/// Returns the name of a sheet that a formula writes in quotes: 'Bob''s data'.
std::string withoutQuotes(const std::string& sheet) {
    const bool isQuoted = sheet.size() >= 2 && sheet.starts_with('\'') && sheet.ends_with('\'');
    return isQuoted ? replaceAll(sheet.substr(1, sheet.size() - 2), "''", "'") : sheet;
}

excel::WorksheetPtr activeSheet(excel::Workbook& workbook) {
    return workbook.Application()->ActiveCell()->Worksheet();
}

excel::RangePtr cellBelowUsedOnes(excel::Worksheet& sheet) {
    const excel::RangePtr used = sheet.UsedRange();
    const bool isEmpty = used->AddressLocal() == "$A$1" && used->Value().empty();
    return sheet.Cells(isEmpty ? 1 : used->Row() + used->Rows()->Count(), 1);
}

excel::RangePtr cellAtAddress(excel::Workbook& workbook, const std::string& place) {
    const std::size_t mark = place.rfind('!');
    if (mark == std::string::npos) return activeSheet(workbook)->Range(place);
    return workbook.Worksheets()->Item(withoutQuotes(place.substr(0, mark)))->Range(place.substr(mark + 1));
}

excel::RangePtr placeIn(excel::Workbook& workbook, const std::string& place) {
    if (place == kAtEnd) return rangeOrNone([&] { return cellBelowUsedOnes(*activeSheet(workbook)); });
    const excel::RangePtr cell = rangeOrNone([&] { return cellAtAddress(workbook, place); });
    return cell ? cell : rangeOrNone([&] { return workbook.Names()->Item(place)->RefersToRange(); });
}

/// Selects the cell. Raises MappingRefusal when that is not possible, as on a hidden sheet.
void select(excel::Range& cell, const std::string& place) {
    try {
        cell.Select();
    } catch (const AutomationError& error) {
        if (!isNotFound(error)) throw;
        throw MappingRefusal("The mapping cannot begin at '" + place + "': " + error.description());
    }
}

}  // namespace

void activateStart(excel::Workbook& workbook, const std::string& place) {
    const excel::RangePtr found = placeIn(workbook, place);
    if (!found && place == kAtEnd) {
        throw MappingRefusal("The mapping cannot begin at the end of the workbook '" + workbook.FullName() +
                             "': its cells are used down to the last row.");
    }
    if (!found) {
        throw MappingRefusal("The mapping cannot begin at '" + place + "': the workbook '" +
                             workbook.FullName() + "' has no such cell and no cells of that name.");
    }
    select(*found->Cells(1, 1), place);
}

}  // namespace mergeloom
