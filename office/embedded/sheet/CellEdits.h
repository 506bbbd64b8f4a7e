#pragma once

#include "office/model/excel/CellAddress.h"

#include <map>
#include <optional>
#include <string>

namespace mergeloom::embedded {

/// What a cell gets.
struct CellEdit {
    enum class Kind {
        Text,    ///< a text in place of all that it held
        Formula  ///< another formula element in place of its own
    };
    Kind kind = Kind::Text;
    std::string content{};
    int newStyle = 0;  ///< of a cell that the part does not hold
};

struct RowEdits {
    std::map<int, CellEdit> cells{};  ///< by column
    std::optional<double> height{};   ///< points
};

/// The cells and rows of a sheet that were changed.
class CellEdits {
  public:
    [[nodiscard]] const std::map<int, RowEdits>& rows() const { return rows_; }
    /// nullptr when nothing was changed there.
    [[nodiscard]] const CellEdit* find(const excel::CellPosition& cell) const;

    /// Puts an edit in place of the former one, which comes back; nothing takes it away.
    std::optional<CellEdit> exchange(const excel::CellPosition& cell, std::optional<CellEdit> edit);
    std::optional<double> exchangeHeight(int row, std::optional<double> height);

  private:
    void dropIfEmpty(int row);

    std::map<int, RowEdits> rows_;
};

}  // namespace mergeloom::embedded
