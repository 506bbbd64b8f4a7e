#include "ui/designer/ExcelTemplates.h"

#include "app/FileFormats.h"
#include "base/AutomationError.h"
#include "office/formats/TemplateFormats.h"
#include "office/formats/mExcelFileExtensions.h"
#include "office/formats/mOfficeVersion.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Worksheet.h"

namespace mergeloom {

namespace {

constexpr TemplateTexts kExcelTexts{
    .officeName = "Excel",
    .newCaption = "New Excel Template",
    .typeName = "Excel Template",
    .wrongFile = "The file selected is not Excel file.",
    .openProcedure = "OpenExcelTemplate",
    .saveProcedure = "SaveExcelTemplate",
    .keptExtension = "ods",
};

}  // namespace

const TemplateTexts& ExcelTemplates::texts() const {
    return kExcelTexts;
}

bool ExcelTemplates::createNew() {
    access_.host().CreateNew("Excel.Template");
    return true;
}

void ExcelTemplates::setUpView() {
    selectFirstCell();
    access_.host().focusOpened();
}

void ExcelTemplates::selectFirstCell() {
    const HostEditing editing(access_.host());
    const excel::WorksheetsPtr sheets = hosted()->Worksheets();
    if (sheets->Count() == 0) return;
    const excel::WorksheetPtr first = sheets->Item(1);
    try {
        first->Activate();
        first->Cells(1, 1)->Select();
    } catch (const AutomationError& error) {
        // A hidden sheet cannot be activated; the workbook then stays as it was opened.
        if (error.number() != kApplicationDefined) throw;
    }
}

excel::WorkbookPtr ExcelTemplates::hosted() {
    const HostedDocument document = access_.host().ActiveDocument();
    const auto* const found = std::get_if<excel::WorkbookPtr>(&document);
    return found == nullptr ? nullptr : *found;
}

model::OfficeDocument* ExcelTemplates::document() {
    workbook_ = hosted();
    return workbook_.get();
}

std::vector<OfferedFormat> ExcelTemplates::templateFormats(FormatUse use) {
    const excel::ApplicationPtr office = hosted()->Application();
    return formatsOfTemplates(DocumentFamily::Excel, majorOfficeVersion(office->Version()), [&](int format) {
        return use == FormatUse::Open || office->canSaveAs(static_cast<excel::XlFileFormat>(format));
    });
}

bool ExcelTemplates::knowsExtensionOf(const std::string& path) const {
    return hasExcelExtension(path);
}

bool ExcelTemplates::keepsPlaces(const std::string& path) const {
    return mergeloom::keepsPlaces(DocumentFamily::Excel, static_cast<int>(excelFormatOf(path)));
}

bool ExcelTemplates::losesPassword(const std::string& path) {
    return access_.host().losesPassword(static_cast<int>(excelFormatOf(path)));
}

void ExcelTemplates::saveAs(const std::string& path) {
    hosted()->SaveAs(path, excelFormatOf(path));
}

/// Editing ends what the user is typing in a cell.
void ExcelTemplates::exportCopy(const std::string& path) {
    const HostEditing editing(access_.host());
    access_.host().ExportCopy(path, static_cast<int>(excelFormatOf(path)));
}

}  // namespace mergeloom
