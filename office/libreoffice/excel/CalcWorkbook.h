#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/Workbook.h"

#include <memory>
#include <optional>
#include <string>

namespace mergeloom::libreoffice {

class CalcApplication;

class CalcWorkbook final : public excel::Workbook {
  public:
    /// A workbook that has a file has its path as full name, a new one a name without a folder.
    CalcWorkbook(std::weak_ptr<CalcApplication> application, CalcContentPtr content, std::string fullName,
                 bool hasFile);

    excel::ApplicationPtr Application() override;
    excel::NamesPtr Names() override;
    excel::WorksheetsPtr Worksheets() override;

    std::string Name() override;
    std::string FullName() override { return fullName_; }
    bool Saved() override { return content_->isSaved(); }
    void SetSaved(bool saved) override { content_->setSaved(saved); }

    void Save() override;
    void SaveAs(const std::string& fileName, excel::XlFileFormat format) override;
    void Close(excel::SaveChanges saveChanges) override;
    bool Undo(int times) override { return times > 0 && content_->undo().undo(); }

    [[nodiscard]] const CalcContentPtr& content() const { return content_; }
    /// Closes the document without saving it.
    void closeDocument();

  private:
    void write(const std::string& fileName, excel::XlFileFormat format);

    std::weak_ptr<CalcApplication> application_;
    CalcContentPtr content_;
    std::string fullName_;
    bool hasFile_;
    std::optional<excel::XlFileFormat> format_;
};

}  // namespace mergeloom::libreoffice
