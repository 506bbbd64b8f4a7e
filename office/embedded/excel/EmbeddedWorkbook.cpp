#include "office/embedded/excel/EmbeddedWorkbook.h"

#include "office/embedded/excel/EmbeddedExcelApplication.h"
#include "office/embedded/excel/EmbeddedNames.h"
#include "office/embedded/excel/EmbeddedWorksheet.h"

#include <utility>

namespace mergeloom::embedded {

EmbeddedWorkbook::EmbeddedWorkbook(std::weak_ptr<EmbeddedExcelApplication> application,
                                   std::shared_ptr<WorkbookContent> content, DocumentFile file)
    : application_(std::move(application)), content_(std::move(content)), file_(std::move(file)) {}

excel::ApplicationPtr EmbeddedWorkbook::Application() {
    return application_.lock();
}

excel::NamesPtr EmbeddedWorkbook::Names() {
    return std::make_shared<EmbeddedNames>(content_);
}

excel::WorksheetsPtr EmbeddedWorkbook::Worksheets() {
    return std::make_shared<EmbeddedWorksheets>(content_);
}

void EmbeddedWorkbook::Save() {
    content_->storeParts();
    file_.save(content_->package());
    content_->setSaved(true);
}

void EmbeddedWorkbook::SaveAs(const std::string& fileName, excel::XlFileFormat format) {
    content_->storeParts();
    file_.saveAs(content_->package(), DocumentFamily::Excel, static_cast<int>(format), fileName);
    content_->setSaved(true);
}

void EmbeddedWorkbook::Close(excel::SaveChanges saveChanges) {
    if (saveChanges == excel::SaveChanges::Yes && !Saved()) Save();
    if (const auto application = application_.lock()) application->remove(*this);
}

bool EmbeddedWorkbook::Undo(int times) {
    return times > 0 && content_->undo().undo();
}

}  // namespace mergeloom::embedded
