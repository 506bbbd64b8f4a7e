#include "office/com/excel/ComExcelApplication.h"

#include "base/AutomationError.h"
#include "office/com/automation/ErrorNumbers.h"
#include "office/com/automation/OfficeErrors.h"
#include "office/com/excel/ComCellRange.h"
#include "office/com/excel/ComExcel.h"
#include "office/formats/FormatTable.h"
#include "office/model/OpenDocuments.h"
#include "office/model/Undo.h"
#include "office/model/excel/Range.h"

namespace mergeloom::com {

namespace {

/// XlWBATemplate: a workbook with one sheet, whatever the user's number of sheets is.
constexpr int kOneWorksheet = -4167;
/// The choice of Workbooks.Open that updates no links.
constexpr int kNoLinks = 0;

class ComSelection final : public excel::Selection {
  public:
    explicit ComSelection(AutomationObject selection) : selection_(std::move(selection)) {}

    std::string TypeName() override {
        try {
            static_cast<void>(selection_.get("Address"));
            return "Range";
        } catch (const AutomationError& error) {
            if (error.number() != kMemberUnknown) throw;
            return "Shape";
        }
    }
    void SetValue2(const std::string& text) override { selection_.put("Value2", textValue(text)); }

  private:
    AutomationObject selection_;
};

/// Excel records no steps for calls of other programs.
class NoUndoRecord final : public model::UndoRecord {
  public:
    void StartCustomRecord(const std::string& /*name*/) override {}
    bool EndCustomRecord() override { return false; }
};

}  // namespace

ComExcelApplication::~ComExcelApplication() {
    if (hasQuit_) return;
    workbooks_.closeAll([](ComWorkbook& workbook) { workbook.Close(excel::SaveChanges::No); });
    try {
        end();
    } catch (const std::exception&) {
        model_->session()->endByForce();
    }
}

void ComExcelApplication::setUp() {
    app().put("DisplayAlerts", false);
    app().put("AutomationSecurity", kForceDisable);
    app().put("EnableEvents", false);
}

excel::WorkbooksPtr ComExcelApplication::Workbooks() {
    return std::make_shared<model::OpenDocuments<excel::Workbooks, excel::Workbook, ComExcelApplication>>(
        shared_from_this());
}

std::optional<SheetArea> ComExcelApplication::activeCell() {
    if (documents().empty()) throw AutomationError(kNotAvailable, "No workbook is open.");
    if (std::optional<SheetArea> known = model_->activeCell()) return known;
    const DispatchPtr found = app().get("ActiveCell").object();
    if (!found) return {};
    const AutomationObject cell(model_->session(), found, "Range");
    model_->setActive({cell.object("Worksheet", "Worksheet"), areaOf(cell)});
    return model_->activeCell();
}

excel::RangePtr ComExcelApplication::ActiveCell() {
    const std::optional<SheetArea> cell = activeCell();
    if (!cell) throw AutomationError(kApplicationDefined, "The active sheet has no cells.");
    return std::make_shared<ComCellRange>(model_, cell->sheet, cell->area);
}

excel::SelectionPtr ComExcelApplication::Selection() {
    if (!activeCell()) return std::make_shared<excel::ChartSelection>();
    return std::make_shared<ComSelection>(app().object("Selection", "Selection"));
}

excel::RangePtr ComExcelApplication::Intersect(excel::Range& first, excel::Range& second) {
    return excel::intersect(first, second);
}

excel::UndoRecordPtr ComExcelApplication::UndoRecord() {
    return std::make_shared<NoUndoRecord>();
}

bool ComExcelApplication::canSaveAs(excel::XlFileFormat format) {
    return findFormat(DocumentFamily::Excel, static_cast<int>(format)) != nullptr;
}

void ComExcelApplication::Quit() {
    while (!documents().empty()) {
        const std::shared_ptr<ComWorkbook> last = documents().back();
        last->Close(excel::SaveChanges::No);
    }
    end();
    hasQuit_ = true;
}

void ComExcelApplication::end() {
    if (app().object("Workbooks", "Workbooks").get("Count").integer() > 0) {
        app().put("Visible", true);
        app().put("UserControl", true);
    } else {
        app().call("Quit");
    }
    model_->session()->releaseOffice();
}

excel::WorkbookPtr ComExcelApplication::add(const std::string& templatePath) {
    const AutomationObject workbooks = app().object("Workbooks", "Workbooks");
    if (templatePath.empty())
        return list(workbooks.callForObject("Workbook", "Add", {{"Template", kOneWorksheet}}));
    excel::WorkbookPtr added;
    readingFile(*model_->session(), templatePath, [&] {
        added = list(workbooks.callForObject("Workbook", "Add", {{"Template", templatePath}}));
    });
    return added;
}

excel::WorkbookPtr ComExcelApplication::open(const std::string& fileName) {
    const AutomationObject workbooks = app().object("Workbooks", "Workbooks");
    excel::WorkbookPtr opened;
    readingFile(*model_->session(), fileName, [&] {
        opened = list(workbooks.callForObject("Workbook", "Open",
                                              {{"Filename", fileName},
                                               {"UpdateLinks", kNoLinks},
                                               {"Password", kNoPassword},
                                               {"IgnoreReadOnlyRecommended", true},
                                               {"Notify", false},
                                               {"AddToMru", false}}));
    });
    return opened;
}

excel::WorkbookPtr ComExcelApplication::list(const AutomationObject& workbook) {
    model_->forget();
    return workbooks_.add(std::make_shared<ComWorkbook>(weak_from_this(), model_, workbook));
}

void ComExcelApplication::remove(const ComWorkbook& workbook) {
    model_->forget();
    workbooks_.remove(workbook);
}

excel::ApplicationPtr makeExcelApplication(const OfficeServer& server) {
    const auto office = std::make_shared<ComExcelApplication>(
        std::make_shared<ComExcelModel>(startApplication("Excel", server)));
    office->setUp();
    return office;
}

}  // namespace mergeloom::com
