#include "app/MappedExcel.h"

#include "app/FileFormats.h"
#include "app/GnuOptions.h"
#include "app/MergeloomErrorCodes.h"
#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/formats/mExcelFileExtensions.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

#include <functional>
#include <string>

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

/// Makes the cell active at which a mapping is to begin: the first column's cell below the used ones of the
/// active sheet (kAtEnd), the cell of an address ("B7", "Sheet2!B7"), or the first cell of a name. Raises
/// MappingRefusal when there is no such cell.
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

/// Returns true when the workbook that was just opened has an active cell, at which drops begin.
bool hasActiveCell(excel::Application& office) {
    try {
        return office.ActiveCell() != nullptr;
    } catch (const AutomationError& error) {
        if (error.number() != kApplicationDefined) throw;
        return false;
    }
}

void refuseWithoutCells(excel::Application& office, const std::string& path) {
    if (hasActiveCell(office)) return;
    throw MappingRefusal("Nothing can be put into the workbook '" + path +
                         "': the sheet that it shows has no cells. Choose another sheet in it and save it.");
}

}  // namespace

bool MappedExcel::knowsExtensionOf(const std::string& path) const {
    return hasExcelExtension(path);
}

std::string MappedExcel::formatNameOf(const std::string& path) const {
    return formatName(DocumentFamily::Excel, static_cast<int>(excelFormatOf(path)));
}

std::string MappedExcel::refusalToSave(const std::string& path) const {
    return formats_.refusalToWrite(formats_.workbookFormatOf(path));
}

std::string MappedExcel::refusalToOpen(const std::string& path) const {
    return formats_.refusalToOpenWorkbook(path);
}

bool MappedExcel::isForeign(const std::string& path) const {
    return isForeignExcelFile(path);
}

void MappedExcel::addDocument(const std::string& templatePath) {
    workbook_ = (*office_)->Workbooks()->Add(templatePath);
    workbook_->giveUpUndo();
    refuseWithoutCells(**office_, templatePath);
}

void MappedExcel::openDocument(const std::string& path) {
    workbook_ = (*office_)->Workbooks()->Open(path);
    workbook_->giveUpUndo();
    refuseWithoutCells(**office_, path);
}

void MappedExcel::beginAt(const std::string& place) {
    activateStart(*workbook_, place);
}

bool MappedExcel::drop(CNodeDropper& dropper, const MappedObject& object) {
    return dropper.NodeDrop(object.node, workbook_, object.xmlNodes, false, object.documentType,
                            object.fields);
}

void MappedExcel::saveAs(const std::string& path) {
    workbook_->SaveAs(path, formats_.workbookFormatOf(path));
}

void MappedExcel::closeDocument() {
    workbook_->SetSaved(true);
    workbook_->Close(excel::SaveChanges::No);
    workbook_.reset();
}

}  // namespace mergeloom
