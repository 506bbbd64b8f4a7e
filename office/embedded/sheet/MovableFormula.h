#pragma once

#include "office/embedded/sheet/FormulaReader.h"
#include "office/embedded/sheet/RowMap.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// The place of a formula: a cell, or a name, chart or rule of a sheet.
struct FormulaPlace {
    std::size_t sheet = 0;
    std::optional<std::size_t> group{};  ///< the repeated rows that contain it
    int copy = 0;                        ///< the repetition, from 0
};

/// A formula whose references move with the rows of their sheets, as Excel moves them when rows are inserted
/// and copied. Excel leaves a sum that ends above inserted rows as it is; here it takes them in, since the
/// rows are those of the table that it adds up.
class MovableFormula {
  public:
    /// Returns the index of a sheet by its name.
    using SheetFinder = std::function<std::optional<std::size_t>(const std::string& name)>;

    /// Decides if a reference to a single cell becomes one to all repetitions of that cell.
    enum class SingleCells { Stay, Grow };

    MovableFormula(std::string_view formula, std::size_t sheet, const SheetFinder& findSheet,
                   SingleCells singleCells = SingleCells::Stay);

    /// Returns true if it refers to a sheet with repeated rows. The maps are those of all sheets.
    [[nodiscard]] bool canMove(std::span<const RowMap> maps) const;
    /// Returns true if it adds up only some of the rows of a block, which are no longer one area when the
    /// block is repeated.
    [[nodiscard]] bool isTornBy(std::span<const RowMap> maps, const FormulaPlace& place) const;
    [[nodiscard]] std::string text(std::span<const RowMap> maps, const FormulaPlace& place) const;

  private:
    struct Part {
        std::string text{};
        std::optional<FormulaReference> reference{};
        std::size_t sheet = 0;
    };

    std::vector<Part> parts_;
};

}  // namespace mergeloom::embedded
