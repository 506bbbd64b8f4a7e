#pragma once

#include "office/graft/BookExport.h"
#include "office/graft/LineShift.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// A cell whose content or format differs between two exports. A part need not contain it.
struct CellChange {
    excel::CellPosition place;
    const ExportedCell* former = nullptr;
    const ExportedCell* now = nullptr;
    bool hasOtherContent = false;
    bool hasOtherFormat = false;
};

/// A row that differs; null if the part does not contain it.
struct RowChange {
    int row = 0;
    const ExportedRow* former = nullptr;
    const ExportedRow* now = nullptr;
    bool hasOtherFormat = false;
};

/// Adjacent columns that differ; null if they have no definition.
struct ColumnsChange {
    int first = 0;
    int last = 0;
    const ExportedColumns* former = nullptr;
    const ExportedColumns* now = nullptr;
    bool hasOtherFormat = false;
};

/// The differences between two exports of a worksheet for which there are rules.
struct SheetDifference {
    std::vector<CellChange> cells;
    std::vector<const ExportedCell*> results;  ///< cells with the same formula and another result
    std::vector<RowChange> rows;
    std::vector<ColumnsChange> columns;
    std::vector<std::string> removedMerges;
    std::vector<std::string> addedMerges;
    bool hasOtherLinks = false;

    /// Returns true if only results differ. Formulas of the time or of random numbers have a new result in
    /// each export.
    [[nodiscard]] bool isEmpty() const {
        return cells.empty() && rows.empty() && columns.empty() && removedMerges.empty() &&
               addedMerges.empty() && !hasOtherLinks;
    }
};

SheetDifference differenceBetween(const BookExport& formerBook, const ExportedSheet& former,
                                  const BookExport& nowBook, const ExportedSheet& now);

/// Returns the first section in which two maps of sections differ; none if they are equal.
std::optional<std::string> differentSection(const std::map<std::string, std::string>& former,
                                            const std::map<std::string, std::string>& now);

/// Returns true if rows or columns were inserted before others or removed: cells below or to the right have
/// moved.
bool hasMovedCells(const ExportedSheet& former, const ExportedSheet& now);

/// Returns the first rows or columns that were inserted or removed, if cells have moved and nothing else
/// was changed beside them.
std::optional<LineShift> findShift(const ExportedSheet& former, const ExportedSheet& now);

}  // namespace mergeloom::graft
