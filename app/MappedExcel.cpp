#include "app/MappedExcel.h"

#include "app/ExcelStart.h"
#include "app/FileFormats.h"
#include "app/MappingRefusal.h"
#include "office/formats/mExcelFileExtensions.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbooks.h"

namespace mergeloom {

namespace {

/// Returns whether the workbook that was just opened has an active cell, at which drops begin.
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
    refuseWithoutCells(**office_, templatePath);
}

void MappedExcel::openDocument(const std::string& path) {
    workbook_ = (*office_)->Workbooks()->Open(path);
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
