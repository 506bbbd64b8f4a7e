#pragma once

#include "base/FileStore.h"
#include "office/embedded/excel/SheetContent.h"
#include "office/embedded/parts/PictureParts.h"
#include "office/embedded/sheet/CalculationChain.h"
#include "office/embedded/sheet/SharedStrings.h"
#include "office/embedded/sheet/SheetTables.h"
#include "office/embedded/sheet/StyleSheet.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/embedded/sheet/WorkbookPart.h"
#include "office/opc/Package.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The content of a workbook while it is open: its package, the sheets that were used, its names and the
/// active sheet. Ranges and names share it, so it lives as long as any of them. Sheets are identified by
/// their index in the workbook's list, from 0.
class WorkbookContent {
  public:
    /// Reads the workbook's part and its styles. Raises kFileCouldNotBeRead for a package that is not a
    /// workbook or cannot be edited safely. Pictures are read from the file store, which must outlive this
    /// object.
    WorkbookContent(opc::Package package, FileStore& files);

    [[nodiscard]] opc::Package& package() { return package_; }
    [[nodiscard]] FileStore& files() { return files_; }
    [[nodiscard]] WorkbookPart& workbook() { return workbook_; }
    [[nodiscard]] const WorkbookPart& workbook() const { return workbook_; }
    [[nodiscard]] const StyleSheet& styles() const { return styles_; }
    [[nodiscard]] TableNames& tableNames() { return tableNames_; }
    [[nodiscard]] UndoLog& undo() { return undo_; }

    /// Returns the content of a worksheet, which the first call reads.
    [[nodiscard]] SheetContent& sheet(std::size_t index);
    /// Returns the index of the worksheet of that name, ignoring case.
    [[nodiscard]] std::optional<std::size_t> worksheetNamed(const std::string& name) const;
    /// Returns true if the active sheet has cells.
    [[nodiscard]] bool isWorksheetActive() const;
    /// Returns the index of the active sheet. Raises kApplicationDefined if it has no cells.
    [[nodiscard]] std::size_t activeWorksheet() const;
    /// Makes a sheet the active one. Raises kApplicationDefined for a hidden sheet.
    void activate(std::size_t index);

    /// Returns the text that a cell shows for a text, a number or a boolean.
    [[nodiscard]] std::string textOf(std::size_t sheet, const excel::CellPosition& cell);
    /// Writes a text into a cell; a cell that is covered by merged cells stays as it is. Raises
    /// kApplicationDefined, with a sentence for the user, for a cell that must not be written.
    void setText(std::size_t sheet, const excel::CellPosition& cell, const std::string& text);
    /// Replaces the content of a cell, which the caller writes with the names of the sheet's part: a number,
    /// a formula with its result, a text with formats, or nothing. Raises kApplicationDefined, with a
    /// sentence for the user, for a cell that must not be written, and for a cell in the header of a table,
    /// which can only be a text.
    void setContent(std::size_t sheet, const excel::CellPosition& cell, const CellContent& content);
    /// Writes a text into all cells of an area. Raises the errors of setText, and kApplicationDefined for an
    /// area with too many cells.
    void fill(std::size_t sheet, const excel::CellArea& area, const std::string& text);

    [[nodiscard]] bool isSaved() const { return saved_; }
    void setSaved(bool saved) { saved_ = saved; }
    /// Marks the workbook as changed; called before each edit.
    void touch() { saved_ = false; }

    /// Writes the edited parts into the package, which can then be saved.
    void storeParts();

  private:
    /// Marks the workbook as changed and returns the former content of the cell. Raises the errors of
    /// checkMayWrite.
    StoredCell prepareWriting(SheetContent& sheet, const excel::CellPosition& cell);
    void checkMayWrite(SheetContent& sheet, const excel::CellPosition& cell, const StoredCell& stored) const;

    opc::Package package_;
    FileStore& files_;
    UndoLog undo_;
    PictureParts pictures_{package_};
    WorkbookPart workbook_;
    StyleSheet styles_;
    CalculationChain calculationChain_;
    TableNames tableNames_{package_};
    bool hasCalculated_;                          ///< true if the workbook stores results of formulas
    std::optional<SharedStrings> sharedStrings_;  // read on first use
    std::vector<std::unique_ptr<SheetContent>> sheets_;
    bool saved_ = true;
};

}  // namespace mergeloom::embedded
