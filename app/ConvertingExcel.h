#pragma once

#include "app/Conversion.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Workbook.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

class ConvertingWorkbook;

/// Implements Excel's object model by an office that supports only Open Packaging, as ConvertingWord does
/// Word's.
class ConvertingExcel final : public excel::Application,
                              public std::enable_shared_from_this<ConvertingExcel> {
  public:
    /// The converter has to outlive it.
    ConvertingExcel(excel::ApplicationPtr office, FileConverter& converter)
        : office_(std::move(office)), conversion_(converter) {}

    std::string Name() override { return office_->Name(); }
    std::string Version() override { return office_->Version(); }
    excel::WorkbooksPtr Workbooks() override;
    excel::RangePtr ActiveCell() override { return office_->ActiveCell(); }
    excel::SelectionPtr Selection() override { return office_->Selection(); }
    excel::RangePtr Intersect(excel::Range& first, excel::Range& second) override {
        return office_->Intersect(first, second);
    }
    excel::UndoRecordPtr UndoRecord() override { return office_->UndoRecord(); }
    bool canSaveAs(excel::XlFileFormat format) override {
        return office_->canSaveAs(format) || conversion_.canWrite(format);
    }
    void Quit() override;

    [[nodiscard]] const std::vector<std::shared_ptr<ConvertingWorkbook>>& workbooks() const {
        return workbooks_;
    }
    excel::WorkbookPtr open(const std::string& fileName);
    excel::WorkbookPtr add(const std::string& templatePath);
    void remove(const ConvertingWorkbook& workbook);

  private:
    /// Returns the format in which the file would be saved; none for a name without a format.
    std::optional<excel::XlFileFormat> formatOf(const std::string& path);

    excel::ApplicationPtr office_;
    Conversion<excel::XlFileFormat> conversion_;
    std::vector<std::shared_ptr<ConvertingWorkbook>> workbooks_;
};

}  // namespace mergeloom
