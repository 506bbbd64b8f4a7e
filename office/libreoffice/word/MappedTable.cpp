#include "office/libreoffice/word/MappedTable.h"

#include <algorithm>
#include <cstdlib>

namespace mergeloom::libreoffice {

namespace {

CharacterCount lengthOf(const MappedRow& row) {
    CharacterCount length = kMark;
    for (const MappedCell& cell : row)
        length = length + cell.length + kMark;
    return length;
}

bool takesLike(const MappedCell& one, const MappedCell& other) {
    return one.columns == other.columns && one.rows == other.rows;
}

/// The number of the row that a cell's name says, from 1.
int rowOf(const std::string& cellName) {
    const std::size_t digits = cellName.find_first_of("0123456789");
    return digits == std::string::npos ? 0 : std::atoi(cellName.c_str() + digits);
}

}  // namespace

CharacterPosition MappedTable::end() const {
    CharacterPosition position = start;
    for (const MappedRow& row : rows)
        position = position + lengthOf(row);
    return position;
}

CharacterPosition MappedTable::startOf(CellPlace cell) const {
    CharacterPosition position = start;
    for (std::size_t row = 0; row < cell.row; ++row)
        position = position + lengthOf(rows[row]);
    for (std::size_t column = 0; column < cell.column; ++column)
        position = position + rows[cell.row][column].length + kMark;
    return position;
}

CharacterPosition MappedTable::endOf(CellPlace cell) const {
    return startOf(cell) + at(cell).length;
}

bool MappedTable::isUniform() const {
    return std::ranges::all_of(rows, [&](const MappedRow& row) {
        const bool isPlain = std::ranges::all_of(row, [](const MappedCell& cell) { return cell.rows == 1; });
        return isPlain && std::ranges::equal(row, rows.front(), takesLike);
    });
}

CellPlace MappedTable::cellAt(CharacterPosition position) const {
    CellPlace cell;
    CharacterPosition begin = start;
    while (cell.row + 1 < rows.size() && position >= begin + lengthOf(rows[cell.row])) {
        begin = begin + lengthOf(rows[cell.row]);
        ++cell.row;
    }
    const MappedRow& row = rows[cell.row];
    while (cell.column + 1 < row.size() && position > begin + row[cell.column].length) {
        begin = begin + row[cell.column].length + kMark;
        ++cell.column;
    }
    return cell;
}

std::vector<MappedRow> rowsOfCells(const std::vector<MappedCell>& cells) {
    std::vector<MappedRow> rows;
    int number = 0;
    for (const MappedCell& cell : cells) {
        const int row = rowOf(cell.name);
        if (rows.empty() || row != number) rows.emplace_back();
        number = row;
        rows.back().push_back(cell);
    }
    return rows;
}

}  // namespace mergeloom::libreoffice
