#pragma once

#include "office/embedded/sheet/SheetIndex.h"
#include "office/embedded/sheet/SheetRoot.h"
#include "office/model/excel/CellAddress.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

/// The new content of a cell, its new style, or both.
struct CellEdit {
    enum class Kind {
        Text,     ///< a text replaces all of the cell's content
        Formula,  ///< another formula element replaces the cell's own
        Content,  ///< other elements replace the cell's own, except its extensions
        Result,   ///< another value replaces that of a formula
        None      ///< the content stays
    };
    Kind kind = Kind::Text;
    std::string content{};
    int newStyle = 0;            ///< the style of a cell that the part does not contain
    std::string type{};          ///< of a Content or Result, the attribute t; empty for a number
    std::optional<int> style{};  ///< replaces the style of any cell
};

/// New values of attributes by their names; none removes an attribute.
using AttributeEdits = std::map<std::string, std::optional<std::string>, std::less<>>;

struct RowEdits {
    std::map<int, CellEdit> cells{};  ///< by column
    std::optional<double> height{};   ///< points
    AttributeEdits attributes{};      ///< applied after the height
};

/// The changed cells and rows of a sheet.
class CellEdits {
  public:
    [[nodiscard]] const std::map<int, RowEdits>& rows() const { return rows_; }
    /// Returns the edit of a cell; nullptr if it was not changed.
    [[nodiscard]] const CellEdit* find(const excel::CellPosition& cell) const;

    /// Replaces the edit of a cell and returns the former one; an empty one removes it.
    std::optional<CellEdit> exchange(const excel::CellPosition& cell, std::optional<CellEdit> edit);
    std::optional<double> exchangeHeight(int row, std::optional<double> height);
    /// Replaces all edits of a row's attributes and returns the former ones.
    AttributeEdits exchangeAttributes(int row, AttributeEdits attributes);

  private:
    void dropIfEmpty(int row);

    std::map<int, RowEdits> rows_;
};

/// The XML of single cells, with and without their edits.
class SheetCells {
  public:
    /// All arguments must outlive this object.
    SheetCells(std::string_view xml, const SheetIndex& index, const CellEdits& edits);

    /// Returns the cell as it was read; empty if the part does not contain it. The time is proportional to
    /// the length of the row.
    [[nodiscard]] std::string_view stored(const excel::CellPosition& cell) const;
    /// Returns the cell with its edit; empty if there is no such cell.
    [[nodiscard]] std::string current(const excel::CellPosition& cell) const;
    /// Returns a cell with an edit applied. stored is empty for a new cell.
    [[nodiscard]] std::string edited(std::string_view stored, const excel::CellPosition& cell,
                                     const CellEdit& edit) const;

    using Visit = std::function<bool(const excel::CellPosition& cell, std::string_view xml)>;
    /// Visits the stored cells of an area in order, with their edits, until a visit returns false.
    void forEachIn(const excel::CellArea& area, const Visit& visit) const;
    /// Returns the start tag of a row as it was read; empty if the part does not contain the row.
    [[nodiscard]] std::string_view rowTag(int row) const;

  private:
    [[nodiscard]] std::string withEditedContent(const std::string& cell, const CellEdit& edit) const;

    std::string_view xml_;
    const SheetIndex& index_;
    const CellEdits& edits_;
};

/// A worksheet's part as it was read, and the changes since.
struct SheetState {
    /// Indexes the part. Raises BadXml if it cannot be read.
    explicit SheetState(std::string bytes)
        : xml(std::move(bytes)), index(indexSheet(xml)), root(index.rootTag.of(xml)) {}
    SheetState(const SheetState&) = delete;
    SheetState& operator=(const SheetState&) = delete;

    std::string xml;
    SheetIndex index;
    SheetRoot root;
    SheetSections sections{xml, index};
    CellEdits edits;
    SheetCells cells{xml, index, edits};
};

}  // namespace mergeloom::embedded
