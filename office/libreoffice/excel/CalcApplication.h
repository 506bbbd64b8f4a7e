#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/excel/CalcWorkbook.h"
#include "office/model/excel/Application.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// Calc, in a process of its own, in the role of Excel. The workbook opened or added last is the active one.
class CalcApplication final : public excel::Application,
                              public std::enable_shared_from_this<CalcApplication> {
  public:
    /// The file store must outlive the application and its workbooks. Workbooks that are opened keep their
    /// originals when a grafting office is given.
    CalcApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files, GraftingOfficePtr grafting)
        : files_(files), session_(std::move(session)), grafting_(std::move(grafting)) {}

    std::string Name() override { return "Microsoft Excel"; }
    /// Calc provides the formats and calls of Excel 2016 and later. Regardless of the version, canSaveAs()
    /// decides which formats it can write.
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
    [[nodiscard]] const std::vector<std::shared_ptr<CalcWorkbook>>& documents() const { return workbooks_; }
    void remove(const CalcWorkbook& workbook);

  private:
    excel::WorkbookPtr list(const DocumentReference& document, const std::string& fullName, bool hasFile);
    [[nodiscard]] const CalcContentPtr& activeContent() const;

    FileStore& files_;
    std::shared_ptr<LibreOfficeSession> session_;
    GraftingOfficePtr grafting_;
    std::vector<std::shared_ptr<CalcWorkbook>> workbooks_;
    int added_ = 0;
};

}  // namespace mergeloom::libreoffice
