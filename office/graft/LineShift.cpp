#include "office/graft/LineShift.h"

#include "base/Text.h"
#include "office/embedded/sheet/FormulaReader.h"

#include <algorithm>

namespace mergeloom::graft {

namespace {

using embedded::Corner;
using embedded::FormulaReference;

constexpr const char* kLostReference = "#REF!";

int& lineOf(Corner& corner, Axis axis) {
    return axis == Axis::Rows ? corner.row : corner.column;
}

}  // namespace

std::optional<int> LineShift::line(int line) const {
    if (line < at) return line;
    if (count < 0 && line < at - count) return {};
    const int moved = line + count;
    return moved > lastOfSheet() ? std::nullopt : std::optional(moved);
}

std::optional<excel::CellPosition> LineShift::cell(const excel::CellPosition& cell) const {
    const std::optional<int> moved = line(axis == Axis::Rows ? cell.row : cell.column);
    if (!moved) return {};
    return axis == Axis::Rows ? excel::CellPosition{*moved, cell.column}
                              : excel::CellPosition{cell.row, *moved};
}

/// Returns whole columns and rows unchanged.
std::optional<std::pair<int, int>> LineShift::lines(int first, int last) const {
    if (first == 1 && last == lastOfSheet()) return std::pair(first, last);
    const int afterRemoved = at - std::min(count, 0);
    const int newFirst = line(first).value_or(first < afterRemoved ? at : lastOfSheet() + 1);
    const int newLast =
        last == lastOfSheet() ? last : line(last).value_or(last < afterRemoved ? at - 1 : lastOfSheet());
    if (newFirst > newLast) return {};
    return std::pair(newFirst, newLast);
}

std::optional<excel::CellArea> LineShift::area(const excel::CellArea& area) const {
    const bool isByRows = axis == Axis::Rows;
    const auto moved =
        isByRows ? lines(area.first.row, area.last.row) : lines(area.first.column, area.last.column);
    if (!moved) return {};
    excel::CellArea result = area;
    (isByRows ? result.first.row : result.first.column) = moved->first;
    (isByRows ? result.last.row : result.last.column) = moved->second;
    return result;
}

std::string LineShift::areas(std::string_view text) const {
    std::string moved;
    for (const excel::CellArea& each : excel::parseAreas(text)) {
        const std::optional<excel::CellArea> now = area(each);
        if (now) moved += (moved.empty() ? "" : " ") + excel::addressOf(*now);
    }
    return moved;
}

std::string LineShift::formula(std::string_view formula, const std::string& sheet, bool isOnIt) const {
    std::string text;
    for (embedded::FormulaReader reader(formula); reader.next();) {
        const FormulaReference* const reference = reader.reference();
        const bool isToIt =
            reference != nullptr && !reference->isForeign &&
            (reference->sheet.empty() ? isOnIt : foldCase(reference->sheet) == foldCase(sheet));
        if (!isToIt) {
            text += reader.text();
            continue;
        }
        Corner first = reference->first;
        Corner last = reference->last.value_or(first);
        // Whole columns do not move with rows.
        if (lineOf(first, axis) == 0) {
            text += reader.text();
            continue;
        }
        const auto moved = lines(lineOf(first, axis), lineOf(last, axis));
        if (!moved) {
            text += kLostReference;
            continue;
        }
        lineOf(first, axis) = moved->first;
        lineOf(last, axis) = moved->second;
        text += reference->last ? first.text() + ":" + last.text() : first.text();
    }
    return text;
}

}  // namespace mergeloom::graft
