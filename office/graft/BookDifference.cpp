#include "office/graft/BookDifference.h"

#include "office/embedded/sheet/FormulaReader.h"
#include "office/graft/SequenceAlignment.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <span>

namespace mergeloom::graft {

namespace {

/// Visits the cells of two sheets in the order of their places. A cell that one of the sheets does not
/// contain is null.
template <typename Visit>
void forEachPair(const ExportedSheet& former, const ExportedSheet& now, const Visit& visit) {
    auto a = former.cells.begin();
    auto b = now.cells.begin();
    while (a != former.cells.end() || b != now.cells.end()) {
        const bool isFormer = a != former.cells.end() && (b == now.cells.end() || a->place <= b->place);
        const bool isNow = b != now.cells.end() && (a == former.cells.end() || b->place <= a->place);
        visit(isFormer ? a->place : b->place, isFormer ? &*a : nullptr, isNow ? &*b : nullptr);
        if (isFormer) ++a;
        if (isNow) ++b;
    }
}

bool isResultOfArray(const ExportedSheet& former, const ExportedSheet& now,
                     const excel::CellPosition& place) {
    return former.isArrayResult(place) && now.isArrayResult(place);
}

int formatOfRow(const BookExport& book, const ExportedRow* row) {
    return row != nullptr && row->style ? book.formats().at(*row->style).number : -1;
}

int formatOfColumns(const BookExport& book, const ExportedColumns* columns) {
    return book.formats().at(columns == nullptr ? 0 : columns->style).number;
}

/// The comparison of one sheet of two workbooks.
class Comparison {
  public:
    Comparison(const BookExport& formerBook, const ExportedSheet& former, const BookExport& nowBook,
               const ExportedSheet& now)
        : formerBook_(formerBook), former_(former), nowBook_(nowBook), now_(now) {}

    SheetDifference make() {
        forEachPair(former_, now_,
                    [&](const excel::CellPosition& place, const ExportedCell* former,
                        const ExportedCell* now) { compare(place, former, now); });
        compareRows();
        compareColumns();
        std::ranges::set_difference(former_.merges, now_.merges,
                                    std::back_inserter(difference_.removedMerges));
        std::ranges::set_difference(now_.merges, former_.merges, std::back_inserter(difference_.addedMerges));
        difference_.hasOtherLinks = former_.links != now_.links;
        return std::move(difference_);
    }

  private:
    void compare(const excel::CellPosition& place, const ExportedCell* former, const ExportedCell* now) {
        CellChange change{place, former, now};
        change.hasOtherContent = !haveSameContent(former, now) && !isResultOfArray(former_, now_, place);
        change.hasOtherFormat = formerBook_.formatAt(former_, place) != nowBook_.formatAt(now_, place);
        if (change.hasOtherContent || change.hasOtherFormat) difference_.cells.push_back(change);
        const bool hasResult =
            !change.hasOtherContent && now != nullptr && former != nullptr && now->hasFormula();
        if (hasResult && (former->value != now->value || former->type != now->type))
            difference_.results.push_back(now);
    }

    void compareRows() {
        std::set<int> numbers;
        for (const ExportedSheet* sheet : {&former_, &now_})
            for (const auto& [number, row] : sheet->rows)
                numbers.insert(number);
        for (const int number : numbers) {
            RowChange change{number, rowIn(former_, number), rowIn(now_, number)};
            change.hasOtherFormat =
                formatOfRow(formerBook_, change.former) != formatOfRow(nowBook_, change.now);
            if (!areEqual(change)) difference_.rows.push_back(change);
        }
    }
    static const ExportedRow* rowIn(const ExportedSheet& sheet, int number) {
        const auto found = sheet.rows.find(number);
        return found == sheet.rows.end() ? nullptr : &found->second;
    }
    static bool areEqual(const RowChange& change) {
        static const ExportedRow kNone{};
        const ExportedRow& former = change.former == nullptr ? kNone : *change.former;
        const ExportedRow& now = change.now == nullptr ? kNone : *change.now;
        return former.height == now.height && former.hidden == now.hidden && former.outline == now.outline &&
               !change.hasOtherFormat;
    }

    /// Compares the columns piece by piece, where a piece has one definition in both sheets.
    void compareColumns() {
        std::set<int> starts;
        for (const ExportedSheet* sheet : {&former_, &now_})
            for (const ExportedColumns& columns : sheet->columns)
                starts.insert({columns.first, columns.last + 1});
        for (auto start = starts.begin(); start != starts.end() && std::next(start) != starts.end();
             ++start) {
            ColumnsChange change{*start, *std::next(start) - 1, former_.columnAt(*start),
                                 now_.columnAt(*start)};
            change.hasOtherFormat =
                formatOfColumns(formerBook_, change.former) != formatOfColumns(nowBook_, change.now);
            if (!areEqual(change)) difference_.columns.push_back(change);
        }
    }
    static bool areEqual(const ColumnsChange& change) {
        if (change.former == nullptr && change.now == nullptr) return true;
        if (change.former == nullptr || change.now == nullptr || change.hasOtherFormat) return false;
        return change.former->width == change.now->width && change.former->hidden == change.now->hidden &&
               change.former->outline == change.now->outline;
    }

    const BookExport& formerBook_;
    const ExportedSheet& former_;
    const BookExport& nowBook_;
    const ExportedSheet& now_;
    SheetDifference difference_;
};

std::size_t lineNumberOf(const ExportedCell& cell, Axis axis) {
    return static_cast<std::size_t>(axis == Axis::Rows ? cell.place.row : cell.place.column);
}

std::string& keyOf(std::vector<std::string>& keys, std::size_t line) {
    if (keys.size() < line) keys.resize(line);
    return keys[line - 1];
}

/// Returns a text for the values in each row or column up to the last used one, regardless of their places in
/// it, since columns may have been inserted as well. Formulas are left out, since their references change
/// when cells move.
std::vector<std::string> valueKeys(const ExportedSheet& sheet, Axis axis) {
    std::vector<std::string> keys;
    for (const ExportedCell& cell : sheet.cells) {
        if (cell.isEmpty() || cell.hasFormula()) continue;
        keyOf(keys, lineNumberOf(cell, axis))
            .append(cell.value)
            .append(std::to_string(cell.textNumber))
            .append(" ");
    }
    return keys;
}

/// Appends a formula without its references, which change when cells move.
void appendPattern(std::string& key, std::string_view formula) {
    key += '=';
    for (embedded::FormulaReader reader(formula); reader.next();)
        key += reader.reference() == nullptr ? reader.text() : "#";
}

/// Returns the keys of values, and in lines without values, such as that of the totals, the patterns of the
/// formulas. In other lines the values suffice, and a formula there may be new.
std::vector<std::string> allKeys(const ExportedSheet& sheet, Axis axis) {
    const std::vector<std::string> values = valueKeys(sheet, axis);
    std::vector<std::string> keys = values;
    for (const ExportedCell& cell : sheet.cells) {
        const std::size_t line = lineNumberOf(cell, axis);
        const bool hasValues = line <= values.size() && !values[line - 1].empty();
        if (cell.hasFormula() && !hasValues) appendPattern(keyOf(keys, line), cell.formula);
    }
    return keys;
}

using LineKeys = std::vector<std::string> (*)(const ExportedSheet& sheet, Axis axis);

/// Returns true if rows or columns have moved: more lines differ at equal numbers than after an alignment. A
/// difference of one line is ignored, since an edit between equal lines can look like a move.
bool hasMovedLines(const std::vector<std::string>& formerKeys, const std::vector<std::string>& nowKeys) {
    const auto gaps = gapsBetween(formerKeys, nowKeys);
    // Nearly all lines differ, as after sorting, so a move cannot be recognised.
    if (!gaps) return false;
    const std::vector<std::size_t> partners = partnersOf(*gaps, formerKeys.size());
    std::size_t unequal = 0;
    std::size_t unpaired = 0;
    for (std::size_t line = 0; line < formerKeys.size(); ++line) {
        if (formerKeys[line].empty()) continue;
        if (line >= nowKeys.size() || formerKeys[line] != nowKeys[line]) ++unequal;
        if (partners[line] == kNoPartner) ++unpaired;
    }
    return unequal > unpaired + 1;
}

/// Returns true if a line was removed at one place and inserted at another one.
bool hasLineElsewhere(const std::vector<Gap>& gaps, const std::vector<std::string>& former,
                      const std::vector<std::string>& now) {
    std::set<std::string> removed;
    for (const Gap& gap : gaps)
        removed.insert(former.begin() + static_cast<std::ptrdiff_t>(gap.formerStart),
                       former.begin() + static_cast<std::ptrdiff_t>(gap.formerEnd));
    removed.erase("");
    return std::ranges::any_of(gaps, [&](const Gap& gap) {
        const auto inserted = std::span(now).subspan(gap.nowStart, gap.nowEnd - gap.nowStart);
        return std::ranges::any_of(inserted, [&](const std::string& key) { return removed.contains(key); });
    });
}

/// Returns true if lines were only inserted, or only removed.
bool isClean(const std::vector<Gap>& gaps) {
    const auto isInsertion = [](const Gap& gap) { return gap.formerStart == gap.formerEnd; };
    const auto isRemoval = [](const Gap& gap) { return gap.nowStart == gap.nowEnd; };
    return std::ranges::all_of(gaps, isInsertion) || std::ranges::all_of(gaps, isRemoval);
}

/// Returns the lines that were inserted or removed; none if they are at the end, since no line has moved.
std::optional<LineShift> shiftAlong(const ExportedSheet& former, const ExportedSheet& now, Axis axis,
                                    LineKeys keysOf) {
    const std::vector<std::string> formerKeys = keysOf(former, axis);
    const std::vector<std::string> nowKeys = keysOf(now, axis);
    const auto gaps = gapsBetween(formerKeys, nowKeys);
    if (!gaps || hasLineElsewhere(*gaps, formerKeys, nowKeys)) return {};
    if (!isClean(*gaps) && !hasMovedLines(formerKeys, nowKeys)) return {};
    for (const Gap& gap : *gaps) {
        const auto removed = static_cast<int>(gap.formerEnd - gap.formerStart);
        const auto inserted = static_cast<int>(gap.nowEnd - gap.nowStart);
        if (removed == inserted || gap.formerEnd == formerKeys.size()) continue;
        if (removed > 0 && inserted > 0) return {};
        return LineShift{axis, static_cast<int>(gap.formerStart) + 1, inserted - removed};
    }
    return {};
}

}  // namespace

SheetDifference differenceBetween(const BookExport& formerBook, const ExportedSheet& former,
                                  const BookExport& nowBook, const ExportedSheet& now) {
    return Comparison(formerBook, former, nowBook, now).make();
}

std::optional<std::string> differentSection(const std::map<std::string, std::string>& former,
                                            const std::map<std::string, std::string>& now) {
    for (const auto& [name, content] : former) {
        const auto found = now.find(name);
        if (found == now.end() || found->second != content) return name;
    }
    for (const auto& [name, content] : now)
        if (!former.contains(name)) return name;
    return {};
}

std::optional<LineShift> findShift(const ExportedSheet& former, const ExportedSheet& now) {
    for (const LineKeys keysOf : {valueKeys, allKeys})
        for (const Axis axis : {Axis::Rows, Axis::Columns})
            if (const auto shift = shiftAlong(former, now, axis, keysOf)) return shift;
    return {};
}

bool hasMovedCells(const ExportedSheet& former, const ExportedSheet& now) {
    const auto haveMoved = [&](Axis axis, LineKeys keysOf) {
        return hasMovedLines(keysOf(former, axis), keysOf(now, axis));
    };
    return haveMoved(Axis::Rows, valueKeys) || haveMoved(Axis::Columns, valueKeys) ||
           haveMoved(Axis::Rows, allKeys) || haveMoved(Axis::Columns, allKeys);
}

}  // namespace mergeloom::graft
