#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/excel/CalcNameIndex.h"
#include "office/libreoffice/excel/CalcPendingEdits.h"
#include "office/libreoffice/excel/CalcSheet.h"
#include "office/libreoffice/excel/CalcUndo.h"
#include "office/libreoffice/excel/CalcUnits.h"
#include "office/libreoffice/session/LibreOfficeSession.h"

#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// An open workbook: the office's document and a cache of its contents, so that queries for each place need
/// no remote call. Only the object model changes the document while this object is used; if the document is
/// shown to a user, a new object is created for each use by the object model.
class CalcContent {
  public:
    CalcContent(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                const DocumentReference& document);
    /// Adopts the document of a former content, which a user may have changed since. The former content is
    /// kept to undo its steps.
    explicit CalcContent(CalcContent& former);
    CalcContent(const CalcContent&) = delete;
    CalcContent& operator=(const CalcContent&) = delete;
    /// Closes the document without saving it.
    ~CalcContent();

    [[nodiscard]] LibreOfficeSession& session() { return *session_; }
    [[nodiscard]] OfficeConnection& connection() { return session_->connection(); }
    [[nodiscard]] FileStore& files() { return files_; }
    [[nodiscard]] const DocumentReference& document() const { return document_; }
    [[nodiscard]] const Reference<css::lang::XMultiServiceFactory>& factory() const { return factory_; }

    [[nodiscard]] std::size_t sheetCount() const { return sheets_.size(); }
    [[nodiscard]] CalcSheet& sheet(std::size_t index) { return *sheets_.at(index); }
    /// Returns the index of the worksheet of that name, ignoring case.
    [[nodiscard]] std::optional<std::size_t> sheetNamed(const std::string& name) const;
    /// Returns true if the active sheet is a worksheet.
    [[nodiscard]] bool hasActiveCells() const { return sheets_[activeSheet_]->hasCells(); }
    /// Returns the index of the active sheet. Raises kApplicationDefined if it has no cells.
    [[nodiscard]] std::size_t activeSheet() const;
    /// Makes a sheet the active one. Raises kApplicationDefined for a hidden sheet.
    void activate(std::size_t index);
    /// Sets the selection of a sheet; a recorded step can undo it.
    void select(std::size_t index, const excel::CellSelection& selection);

    [[nodiscard]] CalcNameIndex& names() { return names_; }
    /// Returns the names of the workbook or of one of its sheets, after pending ones were written. Must run
    /// within a call.
    [[nodiscard]] Reference<css::sheet::XNamedRanges> namesOf(int sheet);

    void startRecord(const std::string& name);
    /// Returns true when anything was changed since the start of the record.
    bool endRecord();
    [[nodiscard]] CalcUndo& undo() { return undo_; }
    [[nodiscard]] CalcPendingEdits& pending() { return pending_; }
    [[nodiscard]] CalcFonts& fonts() { return fonts_; }
    [[nodiscard]] const CalcColumnUnits& columnUnits();
    /// Returns true if a number format shows booleans. Must run within a call.
    [[nodiscard]] bool showsBooleans(sal_Int32 numberFormat);

    [[nodiscard]] bool isSaved();
    void setSaved(bool isSaved);
    /// Clears the model's own modified flag after a save. The office tracks the changes by the user.
    void forgetChanges() { isSaved_ = true; }
    /// Marks the workbook as changed; called before each change.
    void touch();

  private:
    void readSheets();
    void readSheetKinds();
    [[nodiscard]] Reference<css::sheet::XNamedRanges> ownNamesOf(int sheet) const;
    void readNames();
    void readNames(const Reference<css::sheet::XNamedRanges>& names, int sheet);

    std::shared_ptr<LibreOfficeSession> session_;
    FileStore& files_;
    DocumentReference document_;
    Reference<css::sheet::XSpreadsheetDocument> workbook_;
    Reference<css::lang::XMultiServiceFactory> factory_;
    CalcUndo undo_;
    CalcPendingEdits pending_;
    CalcFonts fonts_;
    std::optional<CalcColumnUnits> columnUnits_;
    Reference<css::util::XNumberFormats> numberFormats_;
    Reference<css::sheet::XNamedRanges> documentNames_;
    std::vector<std::unique_ptr<CalcSheet>> sheets_;
    std::size_t activeSheet_ = 0;
    CalcNameIndex names_;
    const bool isShown_;
    bool isSaved_ = true;
    bool closesDocument_ = true;
};

using CalcContentPtr = std::shared_ptr<CalcContent>;

/// Changes the sheet, font and sizes of a new workbook of the office to those of Excel's new workbooks.
void applyNewWorkbookDefaults(OfficeConnection& connection, const DocumentReference& document);

}  // namespace mergeloom::libreoffice
