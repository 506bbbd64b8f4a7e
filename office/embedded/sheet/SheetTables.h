#pragma once

#include "office/embedded/package/Package.h"
#include "office/embedded/sheet/CellAddress.h"
#include "office/embedded/sheet/UndoLog.h"

#include <string>

namespace mergeloom::embedded {

/// The tables (ListObjects) of one sheet (ECMA-376 Part 1, 18.5). A table's part repeats the texts of its
/// header cells; where the two differ, Excel calls the workbook damaged.
class SheetTables {
  public:
    SheetTables(Package& package, std::string sheetPart, UndoLog& undo);

    /// The text that a header cell may get: the text itself, with a number behind it where another column of
    /// the table has that name already. Any other cell may get any text.
    [[nodiscard]] std::string allowedText(const CellPosition& cell, const std::string& text);
    /// Says that a cell got a text; the column of a header cell is renamed.
    void textWasSet(const CellPosition& cell, const std::string& text);
    /// Hands the edited parts to the package.
    void store();
};

}  // namespace mergeloom::embedded
