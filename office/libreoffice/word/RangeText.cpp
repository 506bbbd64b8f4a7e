#include "office/libreoffice/word/RangeText.h"

#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/TextPortions.h"

namespace mergeloom::libreoffice {

namespace {

constexpr const char* kCellMark = "\r\a";

/// Returns the text with CR for the ends of paragraphs and of lines, which Writer gives alike.
std::string stringOf(const RangeReference& range) {
    return replaceAll(fromUno(range->getString()), "\n", "\r");
}

/// Goes through the texts of a range and collects their parts and the marks between them.
class RangeWalk {
  public:
    explicit RangeWalk(const TextReference& story) : story_(story) {}

    void walk(const RangeReference& start, const RangeReference& end) {
        const TableReference table = tableAround(start, end);
        if (!table.is()) return walkText(start, end);
        const std::vector<RowOfCells> rows = rowsOf(table);
        const CellPlace first = cellOf(table, rows, story_, start);
        const CellPlace last = cellOf(table, rows, story_, end);
        if (first == last) return walkText(start, end);
        walkCells(table, rows, {first, start}, {last, end});
    }

    void walkTable(const TableReference& table) {
        for (const RowOfCells& row : rowsOf(table)) {
            for (const OUString& name : row) {
                const TextReference cell = cellText(table, name);
                walkFromStart(cell, cursorOverCell(cell)->getEnd());
                text += kCellMark;
            }
            text += kCellMark;
        }
    }

    std::string text;
    std::vector<CursorReference> parts;

  private:
    struct CellEnd {
        CellPlace cell;
        RangeReference at;
    };

    void addPart(const RangeReference& start, const RangeReference& end) {
        const CursorReference part = cursorOver(start, end);
        text += stringOf(rangeOf(part));
        if (!part->isCollapsed()) parts.push_back(part);
    }

    /// Both ends are in one text.
    void walkText(const RangeReference& start, const RangeReference& end) {
        const CursorReference cursor = cursorOver(start, end);
        if (cursor->getString().indexOf('\n') < 0) return addPart(start, end);
        for (const auto elements = enumerationOf(cursor); elements->hasMoreElements();) {
            const css::uno::Any element = elements->nextElement();
            if (const TableReference table{element, UNO_QUERY}; table.is()) {
                walkTable(table);
            } else {
                walkParagraph(RangeReference(element, UNO_QUERY_THROW), start, end);
            }
        }
    }

    void walkParagraph(const RangeReference& paragraph, const RangeReference& start,
                       const RangeReference& end) {
        const bool beginsBefore = order::compareStarts(story_, paragraph, start) < 0;
        const bool endsAfter = order::compareEnds(story_, paragraph, end) >= 0;
        addPart(beginsBefore ? start : paragraph->getStart(), endsAfter ? end : paragraph->getEnd());
        if (!endsAfter) text += '\r';
    }

    /// Goes from the text's start, with the tables there, to a place in it.
    void walkFromStart(const TextReference& whole, const RangeReference& end) {
        for (const auto elements = enumerationOf(whole); elements->hasMoreElements();) {
            const css::uno::Any element = elements->nextElement();
            if (const TableReference table{element, UNO_QUERY}; table.is()) {
                walkTable(table);
            } else {
                const RangeReference paragraph(element, UNO_QUERY_THROW);
                walkParagraph(paragraph, paragraph->getStart(), end);
                if (order::compareEnds(story_, paragraph, end) >= 0) return;
            }
        }
    }

    void walkCells(const TableReference& table, const std::vector<RowOfCells>& rows, const CellEnd& first,
                   const CellEnd& last) {
        for (CellPlace cell = first.cell; cell <= last.cell;) {
            const TextReference whole = cellText(table, rows[cell.row][cell.column]);
            if (cell == first.cell) {
                walk(first.at, cursorOverCell(whole)->getEnd());
            } else if (cell == last.cell) {
                return walkFromStart(whole, last.at);
            } else {
                walkFromStart(whole, cursorOverCell(whole)->getEnd());
            }
            text += kCellMark;
            if (++cell.column < rows[cell.row].size()) continue;
            text += kCellMark;
            cell = {cell.row + 1, 0};
        }
    }

    TextReference story_;
};

std::string marksBeyond(Beyond beyond) {
    switch (beyond) {
        case Beyond::CellMark:
            return kCellMark;
        case Beyond::Table:
            return std::string(kCellMark) + kCellMark;
        case Beyond::StoryMark:
            return "\r";
        default:
            return {};
    }
}

}  // namespace

std::string textOf(const TrackedRange& range) {
    if (range.startBeyond != Beyond::Nothing) return kCellMark;
    if (range.table.is()) {
        RangeWalk walk(range.story);
        walk.walkTable(range.table);
        return walk.text;
    }
    std::string text = stringOf(rangeOf(range.cursor));
    if (text.find('\r') != std::string::npos) {
        RangeWalk walk(range.story);
        walk.walk(range.cursor->getStart(), range.cursor->getEnd());
        text = walk.text;
    }
    return text + marksBeyond(range.endBeyond);
}

std::vector<CursorReference> partsOf(const TrackedRange& range) {
    RangeWalk walk(range.story);
    if (range.table.is()) {
        walk.walkTable(range.table);
    } else if (range.cursor->getString().indexOf('\n') < 0) {
        return {range.cursor};
    } else {
        walk.walk(range.cursor->getStart(), range.cursor->getEnd());
    }
    return walk.parts;
}

}  // namespace mergeloom::libreoffice
