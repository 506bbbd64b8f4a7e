#include "office/libreoffice/excel/CalcApplication.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcOffice.h"
#include "office/libreoffice/excel/CalcRange.h"
#include "office/libreoffice/excel/CalcTexts.h"
#include "office/libreoffice/session/OfficeFilters.h"
#include "office/model/OpenDocuments.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"

namespace mergeloom::libreoffice {

namespace {

/// The selection of the active sheet, in which shapes are never selected.
class CalcSelection final : public excel::Selection {
  public:
    explicit CalcSelection(CalcContentPtr content)
        : content_(std::move(content)), sheet_(content_->activeSheet()) {}

    std::string TypeName() override { return "Range"; }
    void SetValue2(const std::string& text) override {
        for (const excel::CellArea& area : content_->sheet(sheet_).selection().areas)
            fill(*content_, sheet_, area, text);
    }

  private:
    CalcContentPtr content_;
    std::size_t sheet_;
};

class CalcUndoRecord final : public model::UndoRecord {
  public:
    explicit CalcUndoRecord(CalcContentPtr content) : content_(std::move(content)) {}

    void StartCustomRecord(const std::string& name) override { content_->startRecord(name); }
    bool EndCustomRecord() override { return content_->endRecord(); }

  private:
    CalcContentPtr content_;
};

}  // namespace

excel::ApplicationPtr makeExcelApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                                           GraftingOfficePtr grafting) {
    return std::make_shared<CalcApplication>(std::move(session), files, std::move(grafting));
}

excel::WorkbooksPtr CalcApplication::Workbooks() {
    return std::make_shared<model::OpenDocuments<excel::Workbooks, excel::Workbook, CalcApplication>>(
        shared_from_this());
}

excel::RangePtr CalcApplication::ActiveCell() {
    const CalcContentPtr& content = activeContent();
    CalcSheet& sheet = content->sheet(content->activeSheet());
    const excel::CellPosition cell = sheet.merged().at(sheet.selection().activeCell).first;
    return calcRangeOf(content, content->activeSheet(), {cell, cell});
}

excel::SelectionPtr CalcApplication::Selection() {
    const CalcContentPtr& content = activeContent();
    if (!content->hasActiveCells()) return std::make_shared<excel::ChartSelection>();
    return std::make_shared<CalcSelection>(content);
}

excel::RangePtr CalcApplication::Intersect(excel::Range& first, excel::Range& second) {
    return excel::intersect(first, second);
}

excel::UndoRecordPtr CalcApplication::UndoRecord() {
    return std::make_shared<CalcUndoRecord>(activeContent());
}

bool CalcApplication::canSaveAs(excel::XlFileFormat format) {
    return filterFor(format).has_value();
}

void CalcApplication::Quit() {
    for (const std::shared_ptr<CalcWorkbook>& workbook : std::exchange(workbooks_, {}))
        workbook->closeDocument();
}

excel::WorkbookPtr CalcApplication::open(const std::string& fileName) {
    return list(session_->files().open(fileName, DocumentKind::Excel), fileName, true);
}

excel::WorkbookPtr CalcApplication::add(const std::string& templatePath) {
    DocumentReference document;
    if (templatePath.empty()) {
        document = session_->files().create(DocumentKind::Excel);
        applyNewWorkbookDefaults(session_->connection(), document);
    } else {
        document = session_->files().open(templatePath, DocumentKind::Excel);
    }
    return list(document, "Book" + std::to_string(added_ + 1), false);
}

excel::WorkbookPtr CalcApplication::list(const DocumentReference& document, const std::string& fullName,
                                         bool hasFile) {
    auto content = std::make_shared<CalcContent>(session_, files_, document);
    workbooks_.push_back(
        std::make_shared<CalcWorkbook>(weak_from_this(), std::move(content), fullName, hasFile));
    if (!hasFile) ++added_;
    if (hasFile) workbooks_.back()->keepOriginal(grafting_, fullName);
    return workbooks_.back();
}

void CalcApplication::remove(const CalcWorkbook& workbook) {
    std::erase_if(workbooks_, [&](const auto& candidate) { return candidate.get() == &workbook; });
}

const CalcContentPtr& CalcApplication::activeContent() const {
    if (workbooks_.empty()) throw AutomationError(kNotAvailable, "No workbook is open.");
    return workbooks_.back()->content();
}

}  // namespace mergeloom::libreoffice
