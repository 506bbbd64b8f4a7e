#pragma once

#include "app/ConvertedFile.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Workbook.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom {

class ConvertingExcel;

using ConvertedExcelFile = ConvertedFile<excel::Workbook, excel::XlFileFormat>;

/// A workbook of an office that converts: all but its file is that of the other office.
class ConvertingWorkbook final : public excel::Workbook {
  public:
    ConvertingWorkbook(std::weak_ptr<ConvertingExcel> office, ConvertedExcelFile file)
        : office_(std::move(office)), file_(std::move(file)) {}

    excel::ApplicationPtr Application() override;
    excel::NamesPtr Names() override;
    excel::WorksheetsPtr Worksheets() override;

    std::string Name() override { return file_.name(); }
    std::string FullName() override { return file_.fullName(); }
    bool Saved() override { return file_.document().Saved(); }
    void SetSaved(bool saved) override { file_.document().SetSaved(saved); }

    void Save() override { file_.save(); }
    void SaveAs(const std::string& fileName, excel::XlFileFormat format) override {
        file_.saveAs(fileName, format);
    }
    void Close(excel::SaveChanges saveChanges) override;
    bool Undo(int times) override { return file_.document().Undo(times); }

  private:
    std::weak_ptr<ConvertingExcel> office_;
    ConvertedExcelFile file_;
};

}  // namespace mergeloom
