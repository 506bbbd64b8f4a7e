#pragma once

#include "office/embedded/sheet/TableHeader.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/model/excel/CellAddress.h"
#include "office/opc/Package.h"

#include <memory>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The tables (ListObjects) of one sheet (ECMA-376 Part 1, 18.5). A table's part repeats the texts of its
/// header cells; where the two differ, Excel calls the workbook damaged. They are read when one of them is
/// asked for first.
class SheetTables {
  public:
    /// Package and log must outlive the tables.
    SheetTables(opc::Package& package, std::string sheetPart, UndoLog& undo);

    /// The text that a header cell may get: the text itself, with a number behind it where another column of
    /// the table has that name already; at most 255 characters of it; "Column1" for none. Any other cell may
    /// get any text. Raises kFileCouldNotBeRead when a table is malformed.
    [[nodiscard]] std::string allowedText(const excel::CellPosition& cell, const std::string& text);
    /// Says that a cell got a text; the column of a header cell is renamed.
    void textWasSet(const excel::CellPosition& cell, const std::string& text);
    /// Hands the edited parts to the package.
    void store();

  private:
    void load();
    /// Null for a cell that is no header of a table.
    TableHeader* headerAt(const excel::CellPosition& cell);

    opc::Package& package_;
    std::string sheetPart_;
    UndoLog& undo_;
    bool loaded_ = false;
    std::vector<std::unique_ptr<TableHeader>> headers_;
};

}  // namespace mergeloom::embedded
