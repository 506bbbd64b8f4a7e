#pragma once

#include "office/embedded/books/CellValue.h"
#include "office/embedded/excel/WorkbookContent.h"
#include "office/embedded/sheet/RowMap.h"
#include "office/model/letters/PlaceSource.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The prefixes of the hidden names over rows of a filled workbook, which a number follows: rows that were
/// added after the pattern rows of a table, and rows that were hidden because the table has no records. They
/// are like the bookmarks over added rows of a filled letter.
inline constexpr const char* kAddedRowsName = "_MergeloomRows";
inline constexpr const char* kHiddenRowsName = "_MergeloomHidden";

/// A cell with a place.
struct BookPlace {
    std::string name;
    letters::PlaceSource source;
    std::size_t sheet = 0;
    excel::CellPosition cell{};
    std::optional<std::size_t> table{};  ///< the table in whose pattern rows it is
    bool isPicture = false;              ///< true if a picture of the place's name is on the cell
};

/// A table that lists the records of a subform.
struct BookTable {
    std::string name;
    letters::ControlPath path;
    std::size_t sheet = 0;
    excel::CellArea area{};
    int firstRow = 0;  ///< of the pattern rows
    int lastRow = 0;
    std::size_t group = 0;  ///< the repeated rows of the sheet
};

/// The places and tables of a workbook.
struct BookPlaces {
    std::vector<BookPlace> places{};
    std::vector<BookTable> tables{};
    std::vector<RowMap> maps{};  ///< the repeated rows of all sheets, and an empty one
    /// The rows that are hidden because a table had no records when the workbook was filled before.
    std::vector<std::vector<excel::CellArea>> hiddenRows{};
    std::vector<std::string> refusals{};
    std::vector<std::string> obstacles{};  ///< the reasons why rows cannot be repeated

    [[nodiscard]] bool hasRepeatedRows() const { return !tables.empty(); }
};

/// Finds the places and tables of a workbook and the rows that are repeated.
BookPlaces findBookPlaces(WorkbookContent& content, const letters::PlaceSources& sources);

/// Returns true if a defined name marks rows of a filled workbook.
bool marksFilledRows(std::string_view name);

}  // namespace mergeloom::embedded
