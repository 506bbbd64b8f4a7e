#pragma once

#include "office/embedded/parts/PictureParts.h"
#include "office/embedded/sheet/MergedCells.h"
#include "office/embedded/sheet/SheetDrawing.h"
#include "office/embedded/sheet/SheetGeometry.h"
#include "office/embedded/sheet/SheetPart.h"
#include "office/embedded/sheet/SheetTables.h"
#include "office/embedded/sheet/SheetView.h"
#include "office/embedded/sheet/StyleSheet.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/embedded/sheet/WorkbookPart.h"
#include "office/opc/Package.h"

#include <vector>

namespace mergeloom::embedded {

/// The objects that the sheets of a workbook share.
struct SheetDependencies {
    opc::Package& package;
    PictureParts& pictures;
    const StyleSheet& styles;
    UndoLog& undo;
};

/// The content of a worksheet while its workbook is open.
class SheetContent {
  public:
    /// Reads the sheet's part. The entry and the dependencies must outlive this object. Raises
    /// kFileCouldNotBeRead.
    SheetContent(const SheetEntry& entry, const SheetDependencies& dependencies);

    [[nodiscard]] const SheetEntry& entry() const { return entry_; }
    [[nodiscard]] SheetPart& part() { return part_; }
    [[nodiscard]] const MergedCells& merged() const { return merged_; }
    [[nodiscard]] const SheetProtection& protection() const { return protection_; }
    [[nodiscard]] SheetGeometry& geometry() { return geometry_; }
    [[nodiscard]] SheetDrawing& drawing() { return drawing_; }
    [[nodiscard]] SheetTables& tables() { return tables_; }

    /// Returns true if the cell is part of a pivot table.
    [[nodiscard]] bool isInPivotTable(const excel::CellPosition& cell) const;

    [[nodiscard]] const excel::CellSelection& selection() const { return selection_; }
    void select(const excel::CellSelection& selection);

    /// Writes the edited parts into the package.
    void store();

  private:
    const SheetEntry& entry_;
    opc::Package& package_;
    UndoLog& undo_;
    SheetPart part_;
    MergedCells merged_;
    SheetProtection protection_;
    SheetGeometry geometry_;
    SheetDrawing drawing_;
    SheetTables tables_;
    std::vector<excel::CellArea> pivotTables_;
    excel::CellSelection selection_;
    bool stored_ = false;
};

}  // namespace mergeloom::embedded
