#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/libreoffice/readback/KeptOriginal.h"
#include "office/model/excel/Workbook.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace mergeloom::libreoffice {

class CalcApplication;

class CalcWorkbook final : public excel::Workbook {
  public:
    /// The full name of a workbook with a file is its path, that of a new one a name without a folder.
    CalcWorkbook(std::weak_ptr<CalcApplication> application, CalcContentPtr content, std::string fullName,
                 bool hasFile);

    /// Repeats the changes on an original from now on, if a file of its format can be one. The office may be
    /// null.
    void keepOriginal(const GraftingOfficePtr& office, const std::string& path);

    excel::ApplicationPtr Application() override;
    excel::NamesPtr Names() override;
    excel::WorksheetsPtr Worksheets() override;

    std::string Name() override;
    std::string FullName() override { return fullName_; }
    bool Saved() override { return latest()->isSaved(); }
    void SetSaved(bool saved) override { latest()->setSaved(saved); }

    void Save() override;
    void SaveAs(const std::string& fileName, excel::XlFileFormat format) override;
    void Close(excel::SaveChanges saveChanges) override;
    bool Undo(int times) override;
    void prepareSave() override;
    void useOriginal(const std::string& path) override { keepOriginal(grafting_, path); }
    void giveUpOriginal() override { original_.reset(); }
    std::optional<model::KeptEntries> keptEntries() override;

    [[nodiscard]] const CalcContentPtr& content();
    /// Discards the cached content, since a user may change the document; the next use reads it again.
    void discardContent();
    /// Ends the user's typing in a cell, which takes the text.
    void endInput();
    [[nodiscard]] const DocumentReference& document() const { return latest()->document(); }
    /// Closes the document without saving it.
    void closeDocument();

  private:
    void write(const std::string& fileName, excel::XlFileFormat format);
    [[nodiscard]] const CalcContentPtr& latest() const {
        return content_ ? content_ : formerContents_.back();
    }

    std::weak_ptr<CalcApplication> application_;
    CalcContentPtr content_;                     ///< null while a user may change the document
    std::deque<CalcContentPtr> formerContents_;  ///< kept to undo their steps
    std::string fullName_;
    bool hasFile_;
    std::optional<excel::XlFileFormat> format_;
    GraftingOfficePtr grafting_;
    std::unique_ptr<KeptOriginal> original_;  ///< none for a new workbook, or after its loss was accepted
};

}  // namespace mergeloom::libreoffice
