#pragma once

#include "base/FileStore.h"
#include "office/embedded/excel/SheetContent.h"
#include "office/embedded/parts/PictureParts.h"
#include "office/embedded/sheet/CalculationChain.h"
#include "office/embedded/sheet/SharedStrings.h"
#include "office/embedded/sheet/StyleSheet.h"
#include "office/embedded/sheet/TableNames.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/embedded/sheet/WorkbookPart.h"
#include "office/opc/Package.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// What is in a workbook while it is open: its package, its sheets as far as they were asked for, its names
/// and which of its sheets is active. Ranges and names handed out share it, so it lives as long as any of
/// them. Sheets go by their index in the workbook's list, from 0.
class WorkbookContent {
  public:
    /// Reads the workbook's part and its styles. Raises kFileCouldNotBeRead for a package that is no workbook
    /// or that cannot be edited safely. Pictures are read from the file store, which has to outlive the
    /// content.
    WorkbookContent(opc::Package package, FileStore& files);
    WorkbookContent(const WorkbookContent&) = delete;
    WorkbookContent& operator=(const WorkbookContent&) = delete;

    [[nodiscard]] opc::Package& package() { return package_; }
    [[nodiscard]] FileStore& files() { return files_; }
    [[nodiscard]] WorkbookPart& workbook() { return workbook_; }
    [[nodiscard]] const WorkbookPart& workbook() const { return workbook_; }
    [[nodiscard]] const StyleSheet& styles() const { return styles_; }
    [[nodiscard]] TableNames& tableNames() { return tableNames_; }
    [[nodiscard]] UndoLog& undo() { return undo_; }

    /// The content of a worksheet, which is read when it is asked for first.
    [[nodiscard]] SheetContent& sheet(std::size_t index);
    /// The index of the worksheet of that name, letter case aside.
    [[nodiscard]] std::optional<std::size_t> worksheetNamed(const std::string& name) const;
    /// Whether the active sheet has cells.
    [[nodiscard]] bool isWorksheetActive() const;
    /// Raises kApplicationDefined when the active sheet has no cells.
    [[nodiscard]] std::size_t activeWorksheet() const;
    /// Raises kApplicationDefined for a hidden sheet.
    void activate(std::size_t index);

    /// What a cell shows for a text, a number or a truth value.
    [[nodiscard]] std::string textOf(std::size_t sheet, const excel::CellPosition& cell);
    /// Writes a text into a cell; one that is hidden in merged cells stays as it is. Raises
    /// kApplicationDefined, with a sentence for the user, for a cell that must not be written.
    void setText(std::size_t sheet, const excel::CellPosition& cell, const std::string& text);
    /// Writes a text into all cells of an area; errors as for setText. Raises kApplicationDefined, too, for
    /// more cells than anybody means to fill.
    void fill(std::size_t sheet, const excel::CellArea& area, const std::string& text);

    [[nodiscard]] bool isSaved() const { return saved_; }
    void setSaved(bool saved) { saved_ = saved; }
    /// Says that an edit begins.
    void touch() { saved_ = false; }

    /// Hands the parts that were edited to the package, which can be written then.
    void storeParts();

  private:
    void checkMayWrite(SheetContent& sheet, const excel::CellPosition& cell, const StoredCell& stored) const;

    opc::Package package_;
    FileStore& files_;
    UndoLog undo_;
    PictureParts pictures_{package_};
    WorkbookPart workbook_;
    StyleSheet styles_;
    CalculationChain calculationChain_;
    TableNames tableNames_{package_};
    bool hasCalculated_;                          ///< whether the workbook keeps results of formulas
    std::optional<SharedStrings> sharedStrings_;  // read when they are asked for first
    std::vector<std::unique_ptr<SheetContent>> sheets_;
    bool saved_ = true;
};

}  // namespace mergeloom::embedded
