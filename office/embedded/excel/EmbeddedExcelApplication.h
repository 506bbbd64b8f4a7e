#pragma once

#include "base/FileStore.h"
#include "office/embedded/excel/EmbeddedWorkbook.h"
#include "office/model/excel/Application.h"

#include <memory>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The embedded engine in the role of Excel: workbooks are Office Open XML packages that it reads, edits and
/// writes itself. The workbook opened or added last is the active one.
class EmbeddedExcelApplication final : public excel::Application,
                                       public std::enable_shared_from_this<EmbeddedExcelApplication> {
  public:
    /// The file store must outlive the application and its workbooks.
    explicit EmbeddedExcelApplication(FileStore& files) : files_(files) {}

    std::string Name() override { return "Microsoft Excel"; }
    /// The engine provides the formats and calls of Excel 2016 and later.
    std::string Version() override { return "16.0"; }

    excel::WorkbooksPtr Workbooks() override;
    excel::RangePtr ActiveCell() override;
    excel::SelectionPtr Selection() override;
    excel::RangePtr Intersect(excel::Range& first, excel::Range& second) override;
    excel::UndoRecordPtr UndoRecord() override;
    bool canSaveAs(excel::XlFileFormat format) override;
    void Quit() override;

    excel::WorkbookPtr open(const std::string& fileName);
    excel::WorkbookPtr add(const std::string& templatePath);
    [[nodiscard]] const std::vector<std::shared_ptr<EmbeddedWorkbook>>& documents() const {
        return workbooks_;
    }
    void remove(const EmbeddedWorkbook& workbook);

  private:
    excel::WorkbookPtr list(opc::Package package, const std::string& fullName, bool wasOpened);
    [[nodiscard]] const std::shared_ptr<WorkbookContent>& activeContent() const;

    FileStore& files_;
    std::vector<std::shared_ptr<EmbeddedWorkbook>> workbooks_;
    int added_ = 0;
};

}  // namespace mergeloom::embedded
