#pragma once

#include "office/model/excel/CellAddress.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace mergeloom::embedded {

/// Rows of a sheet that are repeated as one block, and the columns of the cells that are repeated in them.
struct RepeatedRows {
    int first = 0;
    int last = 0;
    int end = 0;  ///< the last row of earlier repetitions, which go; equals last if there are none
    int firstColumn = 0;
    int lastColumn = 0;
    int copies = 1;  ///< at least one

    [[nodiscard]] int height() const { return last - first + 1; }
    [[nodiscard]] bool isPattern(int row) const { return row >= first && row <= last; }
    [[nodiscard]] bool isEarlier(int row) const { return row > last && row <= end; }
    [[nodiscard]] bool hasColumn(int column) const { return column >= firstColumn && column <= lastColumn; }
    /// Returns true if an area contains the rows' cells from top to bottom.
    [[nodiscard]] bool isCoveredBy(const excel::CellArea& area) const;
    /// Returns true if an area contains some of the rows' cells, but not from top to bottom.
    [[nodiscard]] bool isCutBy(const excel::CellArea& area) const;

  private:
    [[nodiscard]] bool touchesColumnsOf(const excel::CellArea& area) const;
};

/// The new numbers of the rows of a sheet after rows were repeated. Rows below move down, or up when earlier
/// repetitions go. An area that covers repeated rows covers all of their repetitions.
class RowMap {
  public:
    /// Adds rows below all that were added before.
    void add(const RepeatedRows& rows) { groups_.push_back(rows); }
    /// Adds columns to those of repeated rows.
    void widen(std::size_t group, int firstColumn, int lastColumn);
    void setCopies(std::size_t group, int copies) { groups_.at(group).copies = copies; }

    [[nodiscard]] bool isEmpty() const { return groups_.empty(); }
    [[nodiscard]] const std::vector<RepeatedRows>& groups() const { return groups_; }
    /// Returns the rows among which a row is, including earlier repetitions.
    [[nodiscard]] std::optional<std::size_t> groupAt(int row) const;
    /// Returns true if the number of a row can change.
    [[nodiscard]] bool canMove(int row) const { return !isEmpty() && row > groups_.front().last; }

    /// Returns the new number of a row: in the first repetition, or of its last row for an earlier one.
    [[nodiscard]] int row(int row) const;
    /// Returns the number of the last row of all repetitions.
    [[nodiscard]] int lastRowOf(std::size_t group) const;
    /// Returns the cells of an area; nothing if all of them were earlier repetitions.
    [[nodiscard]] std::optional<excel::CellArea> area(const excel::CellArea& area) const;
    /// Returns an area that is in the repeated rows, in one of the repetitions, from 0.
    [[nodiscard]] excel::CellArea areaInCopy(const excel::CellArea& area, std::size_t group, int copy) const;

  private:
    [[nodiscard]] int lastRow(const excel::CellArea& area) const;

    std::vector<RepeatedRows> groups_;
};

}  // namespace mergeloom::embedded
