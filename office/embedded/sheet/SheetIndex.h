#pragma once

#include "office/embedded/sheet/AreaIndex.h"
#include "office/embedded/sheet/FormulaGroups.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// Where a piece of a part stands in its bytes.
struct ByteRange {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    [[nodiscard]] std::string_view of(std::string_view xml) const { return xml.substr(begin, end - begin); }
};

/// A row of the sheet; twelve bytes, since there may be a million.
struct IndexedRow {
    int number = 0;
    ByteRange range;
};

/// A child of the worksheet element: its local name, or its full one when it is of another namespace.
struct RootChild {
    std::string name;
    ByteRange range;
};

/// Where everything stands in the part of a worksheet.
struct SheetIndex {
    std::string prefix;  ///< of the elements' names: "x:" or empty
    ByteRange rootTag;
    std::vector<RootChild> children;
    std::optional<ByteRange> sheetDataTag;
    std::vector<IndexedRow> rows;
    AreaIndex arrays;  ///< array formulas and data tables of more than one cell
    FormulaGroups formulaGroups;

    /// The row of that number; nullptr when the part holds none.
    [[nodiscard]] const IndexedRow* findRow(int number) const;
    /// The first row of that number or behind it.
    [[nodiscard]] std::vector<IndexedRow>::const_iterator rowsFrom(int number) const;
};

/// Reads a part once from end to end. Raises BadXml for one that is not well-formed, is no worksheet, or
/// holds its rows or cells out of order or outside of a sheet.
SheetIndex indexSheet(std::string_view xml);

}  // namespace mergeloom::embedded
