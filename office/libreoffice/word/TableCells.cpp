#include "office/libreoffice/word/TableCells.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TextPortions.h"

#include <algorithm>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/text/TableColumnSeparator.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>

namespace mergeloom::libreoffice {

namespace {

using Properties = Reference<css::beans::XPropertySet>;
using Separators = css::uno::Sequence<css::text::TableColumnSeparator>;

constexpr std::u16string_view kLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

OUString nameOf(const TableReference& table) {
    return Reference<css::container::XNamed>(table, UNO_QUERY_THROW)->getName();
}

TableReference tableOf(const Reference<css::uno::XInterface>& place) {
    TableReference table;
    Properties(place, UNO_QUERY_THROW)->getPropertyValue("TextTable") >>= table;
    return table;
}

/// Returns the last of the tables in the range.
TableReference lastTableIn(const CursorReference& cursor) {
    TableReference last;
    for (const auto elements = enumerationOf(cursor); elements->hasMoreElements();) {
        if (const TableReference table{elements->nextElement(), UNO_QUERY}; table.is()) last = table;
    }
    return last;
}

/// Returns the last of the tables that the text begins with.
TableReference lastTableAtStart(const TextReference& text) {
    TableReference last;
    for (const auto elements = enumerationOf(text); elements->hasMoreElements();) {
        const TableReference table{elements->nextElement(), UNO_QUERY};
        if (!table.is()) break;
        last = table;
    }
    return last;
}

/// Returns the letters of a column: one of 26 capitals, then one of 26 small letters, then two.
OUString columnName(std::size_t column) {
    OUString name(kLetters[column % kLetters.size()]);
    while (column >= kLetters.size()) {
        column = column / kLetters.size() - 1;
        name = OUString(kLetters[column % kLetters.size()]) + name;
    }
    return name;
}

sal_Int32 digitsOf(const OUString& name) {
    sal_Int32 digits = 0;
    while (digits < name.getLength() && !(name[digits] >= '0' && name[digits] <= '9'))
        ++digits;
    return digits;
}

/// Returns the number of the row in a cell's name, from 1.
sal_Int32 rowNumber(const OUString& name) {
    return name.copy(digitsOf(name)).toInt32();
}

bool isPartOfSplitCell(const OUString& name) {
    return name.indexOf('.') >= 0;
}

bool isComplete(const RowOfCells& row) {
    return std::ranges::none_of(row, isPartOfSplitCell) &&
           row.back().copy(0, digitsOf(row.back())) == columnName(row.size() - 1);
}

/// Returns the cells of a row with those below a cell of several rows, which Writer has but does not list.
RowOfCells withCoveredCells(const TableReference& table, sal_Int32 row,
                            const std::vector<RowOfCells>& listed) {
    const auto found = std::ranges::find_if(
        listed, [&](const RowOfCells& cells) { return rowNumber(cells.front()) == row; });
    if (found != listed.end() && std::ranges::any_of(*found, isPartOfSplitCell)) return *found;
    RowOfCells cells;
    for (std::size_t column = 0;; ++column) {
        const OUString name = columnName(column) + OUString::number(row);
        if (!table->getCellByName(name).is()) return cells;
        cells.push_back(name);
    }
}

Separators separatorsOf(const TableReference& table, sal_Int32 row) {
    Separators separators;
    Properties(table->getRows()->getByIndex(row), UNO_QUERY_THROW)
        ->getPropertyValue("TableColumnSeparators") >>= separators;
    return separators;
}

bool isSame(const Separators& one, const Separators& other) {
    const auto isSamePlace = [](const auto& a, const auto& b) { return a.Position == b.Position; };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isSamePlace);
}

std::vector<RowOfCells> listedRows(const TableReference& table) {
    std::vector<RowOfCells> rows;
    sal_Int32 number = 0;
    for (const OUString& name : table->getCellNames()) {
        if (rows.empty() || rowNumber(name) != number) rows.emplace_back();
        number = rowNumber(name);
        rows.back().push_back(name);
    }
    return rows;
}

bool hasCell(const TableReference& table, std::size_t row) {
    return table->getCellByName("A" + OUString::number(static_cast<sal_Int64>(row) + 1)).is();
}

/// Returns true when each row has as many cells and none is left out.
bool areAlike(const TableReference& table, const std::vector<RowOfCells>& rows) {
    return !hasCell(table, rows.size()) && std::ranges::all_of(rows, [&](const RowOfCells& row) {
        return isComplete(row) && row.size() == rows.front().size();
    });
}

/// Returns true for a cell that begins with a table: a cursor that is sent to the cell's start is in that
/// table.
bool beginsWithTable(const TextReference& cell, const CursorReference& start) {
    return textAt(rangeOf(start)) != cell;
}

/// Returns the cell's text from its first paragraph outside the tables of the cell to its last one.
CursorReference cursorOverParagraphs(const TextReference& cell) {
    RangeReference first;
    RangeReference last;
    for (const auto elements = enumerationOf(cell); elements->hasMoreElements();) {
        const css::uno::Any element = elements->nextElement();
        if (TableReference(element, UNO_QUERY).is()) continue;
        last.set(element, UNO_QUERY_THROW);
        if (!first.is()) first = last;
    }
    return cursorOver(first->getStart(), last->getEnd());
}

/// Returns the texts that a table inside the story may be in.
std::vector<TextReference> textsAround(const TextReference& story, const TableReference& outer) {
    if (!outer.is()) return {story};
    std::vector<TextReference> texts;
    for (const OUString& name : outer->getCellNames())
        texts.push_back(cellText(outer, name));
    return texts;
}

}  // namespace

TableReference tableAt(const RangeReference& place) {
    return tableOf(place);
}

TableReference tableBefore(const RangeReference& place) {
    const CursorReference cursor = cursorOver(place);
    if (!Reference<css::text::XParagraphCursor>(cursor, UNO_QUERY_THROW)->isStartOfParagraph()) return {};
    if (!cursor->goLeft(1, true)) return lastTableAtStart(cursor->getText());
    return cursor->getString().getLength() > 1 ? lastTableIn(cursor) : TableReference();
}

TableReference tableAround(const TableReference& table) {
    return tableOf(table->getAnchor());
}

TableReference tableAround(const RangeReference& start, const RangeReference& end) {
    for (TableReference one = tableAt(start); one.is(); one = tableAround(one)) {
        for (TableReference other = tableAt(end); other.is(); other = tableAround(other)) {
            if (isSameTable(one, other)) return one;
        }
    }
    return {};
}

TableReference tableAround(const TrackedRange& range) {
    // A range without the end of a paragraph begins and ends in one text.
    if (range.cursor->getString().indexOf('\n') < 0) return tableAt(rangeOf(range.cursor));
    return tableAround(range.cursor->getStart(), range.cursor->getEnd());
}

bool isSameTable(const TableReference& one, const TableReference& other) {
    if (!one.is() || !other.is()) return one.is() == other.is();
    return one == other || nameOf(one) == nameOf(other);
}

RangeReference firstPlaceOf(const TextReference& text) {
    const TableReference table{enumerationOf(text)->nextElement(), UNO_QUERY};
    if (!table.is()) return text->getStart();
    const CursorReference cursor = cellText(table, table->getCellNames()[0])->createTextCursor();
    cursor->gotoStart(false);
    return cursor->getStart();
}

RangeReference placeAfter(const TextReference& story, const TableReference& table) {
    for (const TextReference& text : textsAround(story, tableAround(table))) {
        bool isFound = false;
        for (const auto elements = enumerationOf(text); elements->hasMoreElements();) {
            const css::uno::Any element = elements->nextElement();
            const TableReference other{element, UNO_QUERY};
            if (isFound && other.is()) return cursorOverTable(other)->getStart();
            if (isFound) return RangeReference(element, UNO_QUERY_THROW)->getStart();
            isFound = other.is() && isSameTable(other, table);
        }
    }
    throw AutomationError(kCommandFailed, "LibreOffice does not find the place after the table.");
}

std::vector<RowOfCells> rowsOf(const TableReference& table) {
    std::vector<RowOfCells> listed = listedRows(table);
    if (areAlike(table, listed)) return listed;
    std::vector<RowOfCells> rows;
    const sal_Int32 count = table->getRows()->getCount();
    for (sal_Int32 number = 1; number <= count; ++number)
        rows.push_back(withCoveredCells(table, number, listed));
    return rows;
}

bool isUniform(const TableReference& table) {
    const std::vector<RowOfCells> rows = listedRows(table);
    if (!areAlike(table, rows)) return false;
    const Separators first = separatorsOf(table, 0);
    for (sal_Int32 row = 1; row < static_cast<sal_Int32>(rows.size()); ++row) {
        if (!isSame(first, separatorsOf(table, row))) return false;
    }
    return true;
}

TextReference cellText(const TableReference& table, const OUString& name) {
    return {table->getCellByName(name), UNO_QUERY_THROW};
}

CursorReference cursorOverCell(const TextReference& cell) {
    CursorReference cursor = cell->createTextCursor();
    cursor->gotoStart(false);
    if (beginsWithTable(cell, cursor)) return cursorOverParagraphs(cell);
    cursor->gotoEnd(true);
    return cursor;
}

CellPlace cellOf(const TableReference& table, const std::vector<RowOfCells>& rows, const TextReference& story,
                 const RangeReference& place) {
    OUString name;
    if (isSameTable(tableAt(place), table)) {
        Reference<css::beans::XPropertySet> cell;
        Properties(place, UNO_QUERY_THROW)->getPropertyValue("Cell") >>= cell;
        cell->getPropertyValue("CellName") >>= name;
    }
    for (CellPlace cell; cell.row < rows.size(); ++cell.row) {
        for (cell.column = 0; cell.column < rows[cell.row].size(); ++cell.column) {
            const OUString& candidate = rows[cell.row][cell.column];
            const bool isIt =
                name.isEmpty() ? order::compareEnds(story, place,
                                                    rangeOf(cursorOverCell(cellText(table, candidate)))) <= 0
                               : candidate == name;
            if (isIt) return cell;
        }
    }
    throw AutomationError(kCommandFailed, "LibreOffice does not find the cell of the place.");
}

CursorReference cursorOverTable(const TableReference& table) {
    return wholeTable({}, table).cursor;
}

TrackedRange wholeTable(const TextReference& story, const TableReference& table) {
    const css::uno::Sequence<OUString> names = table->getCellNames();
    const TextReference first = cellText(table, names[0]);
    TrackedRange whole{story, first->createTextCursor(), Beyond::Nothing, Beyond::Table};
    whole.cursor->gotoStart(false);
    if (beginsWithTable(first, whole.cursor)) {
        whole.cursor = cursorOverCell(first);
        whole.cursor->collapseToStart();
        whole.table = table;
    }
    const TextReference last = cellText(table, names[names.getLength() - 1]);
    whole.cursor->gotoRange(cursorOverCell(last)->getEnd(), true);
    return whole;
}

}  // namespace mergeloom::libreoffice
