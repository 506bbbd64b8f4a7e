#pragma once

#include "office/embedded/package/Package.h"
#include "office/embedded/sheet/CellAddress.h"
#include "office/embedded/sheet/UndoLog.h"

#include <string>

namespace mergeloom::embedded {

/// The calculation chain (ECMA-376 Part 1, 18.6): the cells with formulas in the order in which they were
/// calculated last. A chain that lists a cell without a formula makes Excel call the workbook damaged.
class CalculationChain {
  public:
    CalculationChain(Package& package, std::string workbookPart, UndoLog& undo);

    /// Takes a cell out of the chain; the number of its sheet is the sheetId that the workbook lists. A chain
    /// that becomes empty goes from the package.
    void remove(int sheetId, const CellPosition& cell);
    /// Hands the edited part to the package.
    void store();
};

}  // namespace mergeloom::embedded
