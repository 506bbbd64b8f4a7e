#include "app/ConvertingExcel.h"

#include "app/Conversion.h"
#include "app/FileFormats.h"
#include "base/AutomationError.h"
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

namespace {

using excel::XlFileFormat;

class ConvertingWorkbooks final : public excel::Workbooks {
  public:
    explicit ConvertingWorkbooks(std::shared_ptr<ConvertingExcel> office) : office_(std::move(office)) {}

    int Count() override { return static_cast<int>(office_->workbooks().size()); }
    excel::WorkbookPtr Add(const std::string& templatePath) override { return office_->add(templatePath); }
    excel::WorkbookPtr Open(const std::string& fileName) override { return office_->open(fileName); }
    excel::WorkbookPtr Item(int number) override {
        if (number < 1 || number > Count())
            throw AutomationError(kSubscriptOutOfRange, "There is no such workbook.");
        return office_->workbooks()[static_cast<std::size_t>(number) - 1];
    }

  private:
    std::shared_ptr<ConvertingExcel> office_;
};

}  // namespace

std::optional<XlFileFormat> ConvertingExcel::formatOf(const std::string& path) {
    if (!hasExcelExtension(path)) return std::nullopt;
    return excelFormatToWrite(path, [this](XlFileFormat format) { return canSaveAs(format); });
}

excel::WorkbooksPtr ConvertingExcel::Workbooks() {
    return std::make_shared<ConvertingWorkbooks>(shared_from_this());
}

void ConvertingExcel::Quit() {
    workbooks_.clear();
    office_->Quit();
}

excel::WorkbookPtr ConvertingExcel::open(const std::string& fileName) {
    excel::WorkbookPtr workbook;
    const auto openIt = [&](const std::string& path) { workbook = office_->Workbooks()->Open(path); };
    if (isForeignExcelFile(fileName)) {
        conversion_.read(fileName, openIt);
    } else {
        openIt(fileName);
    }
    workbooks_.push_back(std::make_shared<ConvertingWorkbook>(
        weak_from_this(), ConvertedExcelFile(workbook, conversion_, fileName, formatOf(fileName))));
    return workbooks_.back();
}

excel::WorkbookPtr ConvertingExcel::add(const std::string& templatePath) {
    excel::WorkbookPtr workbook;
    const auto addIt = [&](const std::string& path) { workbook = office_->Workbooks()->Add(path); };
    if (isForeignExcelFile(templatePath)) {
        conversion_.read(templatePath, addIt);
    } else {
        addIt(templatePath);
    }
    workbooks_.push_back(std::make_shared<ConvertingWorkbook>(
        weak_from_this(), ConvertedExcelFile(workbook, conversion_, workbook->FullName(), std::nullopt)));
    return workbooks_.back();
}

void ConvertingExcel::remove(const ConvertingWorkbook& workbook) {
    std::erase_if(workbooks_, [&](const auto& candidate) { return candidate.get() == &workbook; });
}

excel::ApplicationPtr ConvertingWorkbook::Application() {
    return office_.lock();
}

excel::NamesPtr ConvertingWorkbook::Names() {
    return file_.document().Names();
}

excel::WorksheetsPtr ConvertingWorkbook::Worksheets() {
    return file_.document().Worksheets();
}

void ConvertingWorkbook::Close(excel::SaveChanges saveChanges) {
    if (saveChanges == excel::SaveChanges::Yes && !Saved()) Save();
    file_.document().Close(excel::SaveChanges::No);
    if (const auto office = office_.lock()) office->remove(*this);
}

}  // namespace mergeloom
