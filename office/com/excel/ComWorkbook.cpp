#include "office/com/excel/ComWorkbook.h"

#include "office/com/automation/OfficeErrors.h"
#include "office/com/excel/ComExcelApplication.h"
#include "office/com/excel/ComNames.h"
#include "office/com/excel/ComWorksheet.h"
#include "office/model/excel/Names.h"

namespace mergeloom::com {

excel::ApplicationPtr ComWorkbook::Application() {
    return owner_.lock();
}

excel::NamesPtr ComWorkbook::Names() {
    if (!names_) names_ = makeNames(model_, workbook_);
    return names_;
}

excel::WorksheetsPtr ComWorkbook::Worksheets() {
    return makeWorksheets(model_, workbook_);
}

void ComWorkbook::Save() {
    checkSavable(workbook_);
    savingFile(*workbook_.session(), FullName(), [&] { workbook_.call("Save"); });
}

void ComWorkbook::SaveAs(const std::string& fileName, excel::XlFileFormat format) {
    savingFile(*workbook_.session(), fileName, [&] {
        workbook_.call("SaveAs", {{"Filename", fileName}, {"FileFormat", format}, {"AddToMru", false}});
    });
}

void ComWorkbook::Close(excel::SaveChanges saveChanges) {
    if (isClosed_) return;
    if (saveChanges == excel::SaveChanges::Yes && !Saved()) Save();
    workbook_.call("Close", {{"SaveChanges", false}});
    isClosed_ = true;
    if (const auto owner = owner_.lock()) owner->remove(*this);
}

}  // namespace mergeloom::com
