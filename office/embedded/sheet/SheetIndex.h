#pragma once

#include "office/embedded/sheet/XmlScanner.h"
#include "office/model/excel/CellAddress.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

/// Areas of cells that do not overlap. Finds the one that contains a cell without visiting all of them.
class AreaIndex {
  public:
    AreaIndex() = default;
    explicit AreaIndex(std::vector<excel::CellArea> areas);

    /// Returns the area that contains the cell.
    [[nodiscard]] std::optional<excel::CellArea> find(const excel::CellPosition& cell) const;

  private:
    std::vector<excel::CellArea> areas_;  // sorted by their first row
    std::vector<int> reach_;              // for each area, the last row of it and all areas before it
};

/// The master cells of a sheet's shared formulas, which hold the formulas' texts (ECMA-376 Part 1, 18.3.1.40,
/// si).
class FormulaGroups {
  public:
    void add(int group, const excel::CellPosition& master) { masters_.emplace(group, master); }
    void remove(int group, const excel::CellPosition& master) { masters_.erase({group, master}); }

    /// Returns the master of a cell of the group. If a group's number is used twice, that is the last master
    /// before the cell.
    [[nodiscard]] std::optional<excel::CellPosition> masterOf(int group,
                                                              const excel::CellPosition& cell) const;

  private:
    std::set<std::pair<int, excel::CellPosition>> masters_;
};

/// Iterates over the cells of one row.
class RowCells {
  public:
    /// The scanner has to be at the row's start tag. The prefix is that of the elements' names, "x:" or
    /// empty.
    RowCells(XmlScanner& scanner, std::string_view prefix, int row);

    /// Moves to the next cell's tag. Returns false after the last one, when the scanner is at the row's end
    /// tag. Raises BadXml for a cell of another row and for cells out of order.
    bool next();
    [[nodiscard]] int column() const { return column_; }

  private:
    void readColumn();

    XmlScanner& scanner_;
    std::string_view prefix_;
    int row_;
    int column_ = 0;
    bool isOpen_;
};

/// The position of a piece of a part in its bytes.
struct ByteRange {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    [[nodiscard]] std::string_view of(std::string_view xml) const { return xml.substr(begin, end - begin); }
};

/// The position of a row. It is kept at twelve bytes, since there may be a million rows.
struct IndexedRow {
    int number = 0;
    ByteRange range;
};

/// A child of the worksheet element. Its name is the local one, or the full one if it is of another
/// namespace.
struct RootChild {
    std::string name;
    ByteRange range;
};

/// The positions of rows and other elements in the part of a worksheet.
struct SheetIndex {
    std::string prefix;  ///< of the elements' names: "x:" or empty
    ByteRange rootTag;
    std::vector<RootChild> children;
    std::optional<ByteRange> sheetDataTag;
    std::vector<IndexedRow> rows;
    AreaIndex arrays;  ///< array formulas and data tables of more than one cell
    FormulaGroups formulaGroups;

    /// Returns the row of that number; nullptr if the part does not contain it.
    [[nodiscard]] const IndexedRow* findRow(int number) const;
    /// Returns the first row of that number or a higher one.
    [[nodiscard]] std::vector<IndexedRow>::const_iterator rowsFrom(int number) const;
};

/// Indexes a part in one pass. Raises BadXml for a part that is not well-formed, is not a worksheet, or
/// contains rows or cells out of order or outside of the limits of a sheet.
SheetIndex indexSheet(std::string_view xml);

}  // namespace mergeloom::embedded
