#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/excel/CalcFonts.h"
#include "office/libreoffice/excel/CalcNameIndex.h"
#include "office/libreoffice/excel/CalcPending.h"
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

/// An open workbook: the office's document and what this side remembers of it, so that questions which are
/// asked for each place need no remote call. Nobody else changes the document; where it is shown to a user,
/// there is a new one for each time that the object model works with it.
class CalcContent {
  public:
    CalcContent(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                const DocumentReference& document);
    /// Takes over the document of another one, which somebody else may have changed since; what the other
    /// holds serves to take steps back.
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
    /// The worksheet of that name, without regard to case.
    [[nodiscard]] std::optional<std::size_t> sheetNamed(const std::string& name) const;
    /// Whether the active sheet is a worksheet.
    [[nodiscard]] bool hasActiveCells() const { return sheets_[activeSheet_]->hasCells(); }
    /// Raises kApplicationDefined when it has no cells.
    [[nodiscard]] std::size_t activeSheet() const;
    /// Raises kApplicationDefined for a hidden sheet.
    void activate(std::size_t index);
    /// What is selected in a sheet; a recorded step takes it back.
    void select(std::size_t index, const CalcSelectedCells& selection);

    [[nodiscard]] CalcNameIndex& names() { return names_; }
    /// The names of the workbook or of one of its sheets, when none waits any more. Within a call.
    [[nodiscard]] Reference<css::sheet::XNamedRanges> namesOf(int sheet);

    void startRecord(const std::string& name);
    void endRecord();
    [[nodiscard]] CalcUndo& undo() { return undo_; }
    [[nodiscard]] CalcPending& pending() { return pending_; }
    [[nodiscard]] CalcFonts& fonts() { return fonts_; }
    [[nodiscard]] const CalcColumnUnits& columnUnits();
    /// Whether a number format shows truth values. Within a call.
    [[nodiscard]] bool showsTruth(sal_Int32 numberFormat);

    [[nodiscard]] bool isSaved();
    void setSaved(bool isSaved);
    /// A change is about to be made.
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
    CalcPending pending_;
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

/// Gives a new workbook of the office the sheet, font and sizes that Excel's own has.
void dressAsNewWorkbook(OfficeConnection& connection, const DocumentReference& document);

}  // namespace mergeloom::libreoffice
