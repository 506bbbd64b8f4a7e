#pragma once

#include "office/model/excel/CellAddress.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::graft {

enum class Axis : std::uint8_t { Rows, Columns };

/// Adjacent rows or columns that were inserted into a sheet or removed from it. Members return the new place
/// of what was there before.
struct LineShift {
    Axis axis = Axis::Rows;
    int at = 0;     ///< the number of the first of them, from 1
    int count = 0;  ///< the number of inserted ones; negative for removed ones

    /// Returns none for a removed row or column, and for one that leaves the sheet.
    [[nodiscard]] std::optional<int> line(int line) const;
    [[nodiscard]] std::optional<excel::CellPosition> cell(const excel::CellPosition& cell) const;
    /// Returns none for an area whose cells were all removed.
    [[nodiscard]] std::optional<excel::CellArea> area(const excel::CellArea& area) const;
    /// Returns a list of areas as attributes contain it; an empty text if all of their cells were removed.
    [[nodiscard]] std::string areas(std::string_view text) const;
    /// Returns a formula whose references to the sheet have moved. References without a sheet are to it if
    /// the formula is on it. References to removed cells become #REF!.
    [[nodiscard]] std::string formula(std::string_view formula, const std::string& sheet, bool isOnIt) const;

  private:
    [[nodiscard]] int lastOfSheet() const {
        return axis == Axis::Rows ? excel::kLastRow : excel::kLastColumn;
    }
    [[nodiscard]] std::optional<std::pair<int, int>> lines(int first, int last) const;
};

}  // namespace mergeloom::graft
