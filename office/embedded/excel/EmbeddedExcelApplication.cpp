#include "office/embedded/excel/EmbeddedExcelApplication.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedCellRange.h"
#include "office/embedded/excel/EmbeddedSheetSelection.h"
#include "office/embedded/excel/EmbeddedWorkbookUndoRecord.h"
#include "office/embedded/excel/EmbeddedWorkbooks.h"
#include "office/embedded/parts/NewWorkbook.h"
#include "office/embedded/parts/SaveFormats.h"
#include "office/model/excel/Columns.h"
#include "office/model/excel/Worksheet.h"

#include <algorithm>
#include <utility>

namespace mergeloom::embedded {

namespace {

excel::CellArea areaOf(excel::Range& range) {
    const excel::CellPosition first{range.Row(), range.Column()};
    const excel::CellPosition last{first.row + range.Rows()->Count() - 1,
                                   first.column + range.Columns()->Count() - 1};
    return {first, last};
}

}  // namespace

excel::WorkbooksPtr EmbeddedExcelApplication::Workbooks() {
    return std::make_shared<EmbeddedWorkbooks>(shared_from_this());
}

excel::RangePtr EmbeddedExcelApplication::ActiveCell() {
    const std::shared_ptr<WorkbookContent>& content = activeContent();
    const std::size_t sheet = content->activeWorksheet();
    SheetContent& active = content->sheet(sheet);
    const excel::CellPosition cell = active.merged().areaAt(active.selection().activeCell).first;
    return std::make_shared<EmbeddedCellRange>(content, sheet, excel::CellArea{cell, cell});
}

excel::SelectionPtr EmbeddedExcelApplication::Selection() {
    return selectionOf(activeContent());
}

excel::RangePtr EmbeddedExcelApplication::Intersect(excel::Range& first, excel::Range& second) {
    const excel::WorksheetPtr sheet = first.Worksheet();
    if (sheet->Name() != second.Worksheet()->Name()) return {};
    const std::optional<excel::CellArea> common = intersection(areaOf(first), areaOf(second));
    if (!common) return {};
    return sheet->Cells(common->first.row, common->first.column)->Resize(common->rows(), common->columns());
}

excel::UndoRecordPtr EmbeddedExcelApplication::UndoRecord() {
    return std::make_shared<EmbeddedWorkbookUndoRecord>(activeContent());
}

bool EmbeddedExcelApplication::canSaveAs(excel::XlFileFormat format) {
    return canWrite(DocumentFamily::Excel, static_cast<int>(format));
}

void EmbeddedExcelApplication::Quit() {
    workbooks_.clear();
}

excel::WorkbookPtr EmbeddedExcelApplication::open(const std::string& fileName) {
    return list(opc::Package::read(files_.read(fileName), fileName), fileName, true);
}

excel::WorkbookPtr EmbeddedExcelApplication::add(const std::string& templatePath) {
    opc::Package package = templatePath.empty() ? seededPackage(newWorkbookParts())
                                                : opc::Package::read(files_.read(templatePath), templatePath);
    return list(std::move(package), "Book" + std::to_string(added_ + 1), false);
}

void EmbeddedExcelApplication::remove(const EmbeddedWorkbook& workbook) {
    std::erase_if(workbooks_, [&](const auto& candidate) { return candidate.get() == &workbook; });
}

excel::WorkbookPtr EmbeddedExcelApplication::list(opc::Package package, const std::string& fullName,
                                                  bool wasOpened) {
    auto content = std::make_shared<WorkbookContent>(std::move(package), files_);
    // A sheet that cannot be read is told when the workbook is opened, not in the middle of the work.
    if (content->isWorksheetActive()) static_cast<void>(content->sheet(content->activeWorksheet()));
    workbooks_.push_back(std::make_shared<EmbeddedWorkbook>(weak_from_this(), std::move(content),
                                                            DocumentFile(files_, fullName, wasOpened)));
    if (!wasOpened) ++added_;
    return workbooks_.back();
}

const std::shared_ptr<WorkbookContent>& EmbeddedExcelApplication::activeContent() const {
    if (workbooks_.empty()) throw AutomationError(kNotAvailable, "No workbook is open.");
    return workbooks_.back()->content();
}

}  // namespace mergeloom::embedded
