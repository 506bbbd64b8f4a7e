#include "office/embedded/excel/EmbeddedExcelApplication.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedCellRange.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/embedded/excel/WorkbookContent.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/embedded/parts/NewDocument.h"
#include "office/model/OpenDocuments.h"
#include "office/model/Undo.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"

#include <cstddef>
#include <utility>

namespace mergeloom::embedded {

namespace {

class SelectedCells final : public excel::Selection {
  public:
    SelectedCells(std::shared_ptr<WorkbookContent> content, std::size_t sheet)
        : content_(std::move(content)), sheet_(sheet) {}

    std::string TypeName() override { return "Range"; }
    void SetValue2(const std::string& text) override {
        for (const excel::CellArea& area : content_->sheet(sheet_).selection().areas)
            content_->fill(sheet_, area, text);
    }

  private:
    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
};

/// Returns the selection of the active sheet: cells, or the chart if it is a chart sheet.
excel::SelectionPtr selectionOf(const std::shared_ptr<WorkbookContent>& content) {
    if (!content->isWorksheetActive()) return std::make_shared<excel::ChartSelection>();
    return std::make_shared<SelectedCells>(content, content->activeWorksheet());
}

/// Only the step that was recorded last can be undone; a record without edits is not a step.
class EmbeddedWorkbookUndoRecord final : public model::UndoRecord {
  public:
    explicit EmbeddedWorkbookUndoRecord(std::shared_ptr<WorkbookContent> content)
        : content_(std::move(content)) {}

    void StartCustomRecord(const std::string&) override { content_->undo().start(); }
    bool EndCustomRecord() override { return content_->undo().stop(); }

  private:
    std::shared_ptr<WorkbookContent> content_;
};

}  // namespace

excel::ApplicationPtr makeExcelApplication(FileStore& files) {
    return std::make_shared<EmbeddedExcelApplication>(files);
}

excel::WorkbooksPtr EmbeddedExcelApplication::Workbooks() {
    return std::make_shared<
        model::OpenDocuments<excel::Workbooks, excel::Workbook, EmbeddedExcelApplication>>(
        shared_from_this());
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
    return excel::intersect(first, second);
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
    opc::Package package = templatePath.empty() ? initialPackage(newWorkbookParts())
                                                : opc::Package::read(files_.read(templatePath), templatePath);
    return list(std::move(package), "Book" + std::to_string(added_ + 1), false);
}

void EmbeddedExcelApplication::remove(const EmbeddedWorkbook& workbook) {
    std::erase_if(workbooks_, [&](const auto& candidate) { return candidate.get() == &workbook; });
}

excel::WorkbookPtr EmbeddedExcelApplication::list(opc::Package package, const std::string& fullName,
                                                  bool wasOpened) {
    auto content = std::make_shared<WorkbookContent>(std::move(package), files_);
    // Reads the active sheet now, so that an unreadable one is reported when the workbook is opened, not
    // later.
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
