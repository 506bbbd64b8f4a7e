#pragma once

#include "doubles/FaultyWord.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Workbook.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom {

/// An office over another one, in which the n-th call for the active cell or the selection fails.
class FaultyExcel final : public excel::Application {
  public:
    FaultyExcel(excel::ApplicationPtr office, CallCounter& counter)
        : office_(std::move(office)), counter_(counter) {}

    std::string Name() override { return office_->Name(); }
    std::string Version() override { return office_->Version(); }
    excel::WorkbooksPtr Workbooks() override { return office_->Workbooks(); }
    excel::RangePtr ActiveCell() override {
        counter_.count();
        return office_->ActiveCell();
    }
    excel::SelectionPtr Selection() override {
        counter_.count();
        return office_->Selection();
    }
    excel::RangePtr Intersect(excel::Range& first, excel::Range& second) override {
        return office_->Intersect(first, second);
    }
    excel::UndoRecordPtr UndoRecord() override { return office_->UndoRecord(); }
    bool canSaveAs(excel::XlFileFormat format) override { return office_->canSaveAs(format); }
    void Quit() override { office_->Quit(); }

  private:
    excel::ApplicationPtr office_;
    CallCounter& counter_;
};

/// A workbook over another one, in which the n-th call fails. Calls for its names count, and those of its
/// application for the active cell or the selection.
class FaultyWorkbook final : public excel::Workbook {
  public:
    FaultyWorkbook(excel::WorkbookPtr workbook, CallCounter& counter)
        : workbook_(std::move(workbook)), counter_(counter) {}

    excel::ApplicationPtr Application() override {
        return std::make_shared<FaultyExcel>(workbook_->Application(), counter_);
    }
    excel::NamesPtr Names() override {
        counter_.count();
        return workbook_->Names();
    }
    excel::WorksheetsPtr Worksheets() override { return workbook_->Worksheets(); }
    std::string Name() override { return workbook_->Name(); }
    std::string FullName() override { return workbook_->FullName(); }
    bool Saved() override { return workbook_->Saved(); }
    void SetSaved(bool saved) override { workbook_->SetSaved(saved); }
    void Save() override { workbook_->Save(); }
    void SaveAs(const std::string& fileName, excel::XlFileFormat format) override {
        workbook_->SaveAs(fileName, format);
    }
    void Close(excel::SaveChanges saveChanges) override { workbook_->Close(saveChanges); }
    bool Undo(int times) override { return workbook_->Undo(times); }

  private:
    excel::WorkbookPtr workbook_;
    CallCounter& counter_;
};

}  // namespace mergeloom
