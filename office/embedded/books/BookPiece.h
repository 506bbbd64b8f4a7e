#pragma once

#include "office/embedded/sheet/MovableFormula.h"
#include "office/model/excel/CellAddress.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

struct BookPiece;
using BookPieces = std::vector<BookPiece>;

/// A piece of the XML of a workbook's part: fixed XML, or content that depends on the records.
struct BookPiece {
    enum class Kind : std::uint8_t {
        Fixed,        ///< fixed XML
        Row,          ///< the number of a row, from 1
        RowFromZero,  ///< the number of a row, from 0
        Break,        ///< the number of the row above a page break
        Formula,      ///< a formula of the part
        Areas,        ///< a list of areas of the part
        Value,        ///< the rest of a cell with a place, after its reference
        Rows,         ///< repeated rows
        FirstOnly,    ///< content of the first repetition, and what the others have instead of it
        Hidden,       ///< an attribute that hides a row of a table without records
        HiddenTable,  ///< the same for the other rows of the table
        Height,       ///< the height of a row with pictures, as it is in the template
        Merges,       ///< the merged cells of a sheet
        Names,        ///< the names that mark repeated rows
    };

    Kind kind = Kind::Fixed;
    std::string xml{};       ///< fixed XML, or what follows a value
    std::size_t number = 0;  ///< of the row, the formula, the areas, the place or the repeated rows
    BookPieces inside{};
    BookPieces otherwise{};  ///< in further repetitions
};

/// Areas of a sheet.
struct MovableAreas {
    std::size_t sheet = 0;
    std::vector<excel::CellArea> areas{};
    std::optional<std::size_t> group{};  ///< the repeated rows in which they are repeated, too
};

/// A part of a workbook, cut into pieces.
struct CutBookPart {
    std::string partName{};
    bool isSheet = false;
    std::size_t sheet = 0;  ///< the index of the sheet of rows and areas without a sheet of their own
    /// Decides if a formula that is one cell of repeated rows means that of all of them.
    MovableFormula::SingleCells singleCells = MovableFormula::SingleCells::Stay;
    std::string prefix{};  ///< of a sheet's elements: "x:" or empty
    BookPieces pieces{};
    std::vector<MovableFormula> formulas{};
    std::vector<FormulaPlace> formulaPlaces{};  ///< those of the formulas
    std::vector<MovableAreas> areas{};
    std::vector<excel::CellArea> merges{};
};

/// Appends fixed XML to pieces, to the last one if that is fixed, too.
inline void appendFixed(BookPieces& pieces, std::string_view xml) {
    if (xml.empty()) return;
    if (pieces.empty() || pieces.back().kind != BookPiece::Kind::Fixed) pieces.emplace_back();
    pieces.back().xml += xml;
}
inline void appendPiece(BookPieces& pieces, BookPiece::Kind kind, std::size_t number) {
    pieces.push_back({.kind = kind, .number = number});
}

}  // namespace mergeloom::embedded
