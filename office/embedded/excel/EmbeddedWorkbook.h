#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/model/excel/Workbook.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

class EmbeddedExcelApplication;

class EmbeddedWorkbook final : public excel::Workbook {
  public:
    EmbeddedWorkbook(std::weak_ptr<EmbeddedExcelApplication> application,
                     std::shared_ptr<WorkbookContent> content, DocumentFile file);

    excel::ApplicationPtr Application() override;
    excel::NamesPtr Names() override;
    excel::WorksheetsPtr Worksheets() override;

    std::string Name() override { return file_.name(); }
    std::string FullName() override { return file_.fullName(); }
    bool Saved() override { return content_->isSaved(); }
    void SetSaved(bool saved) override { content_->setSaved(saved); }

    void Save() override;
    void SaveAs(const std::string& fileName, excel::XlFileFormat format) override;
    void Close(excel::SaveChanges saveChanges) override;
    bool Undo(int times) override;
    void giveUpUndo() override { content_->undo().giveUp(); }

    [[nodiscard]] const std::shared_ptr<WorkbookContent>& content() const { return content_; }

  private:
    std::weak_ptr<EmbeddedExcelApplication> application_;
    std::shared_ptr<WorkbookContent> content_;
    DocumentFile file_;
};

}  // namespace mergeloom::embedded
