#include "app/ConvertingExcel.h"

#include "app/ConvertingWorkbook.h"
#include "app/FileFormats.h"
#include "base/AutomationError.h"

namespace mergeloom {

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

}  // namespace mergeloom
