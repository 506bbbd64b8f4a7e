#include "office/embedded/sheet/MovableFormula.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kLostReference = "#REF!";

excel::CellArea areaOf(const FormulaReference& reference) {
    const Corner& first = reference.first;
    const Corner& last = reference.last ? *reference.last : first;
    return {{first.row, first.column == 0 ? 1 : first.column},
            {last.row, last.column == 0 ? excel::kLastColumn : last.column}};
}

/// Moves one reference.
class ReferenceMover {
  public:
    /// A reference to a row that moves with its formula moves by the offset of the repetition.
    ReferenceMover(const FormulaReference& reference, const RowMap& map, std::optional<std::size_t> ownGroup,
                   int offset)
        : reference_(reference), map_(map), area_(areaOf(reference)), ownGroup_(ownGroup), offset_(offset) {}

    [[nodiscard]] std::string text() const {
        if (reference_.first.row == 0) return written(reference_.first, reference_.last);
        return reference_.last ? area() : cell();
    }

    /// Returns true if the reference means all repetitions of what it refers to.
    [[nodiscard]] bool isOutside() const {
        const std::optional<std::size_t> group = map_.groupAt(area_.last.row);
        const bool isInOwnRows = group && group == ownGroup_;
        return !isInOwnRows || (reference_.first.rowStays && (!reference_.last || reference_.last->rowStays));
    }

  private:
    static std::string written(const Corner& first, const std::optional<Corner>& last) {
        return last ? first.text() + ":" + last->text() : first.text();
    }

    [[nodiscard]] std::string cell() const {
        const std::optional<std::size_t> group = map_.groupAt(area_.first.row);
        if (group && map_.groups()[*group].isEarlier(area_.first.row)) return std::string(kLostReference);
        const bool grows =
            reference_.isSummed && group && isOutside() && map_.groups()[*group].isCoveredBy(area_);
        if (grows) return withRows(reference_.first, map_.row(area_.first.row), map_.lastRowOf(*group));
        const int row = map_.row(area_.first.row);
        return row > excel::kLastRow ? std::string(kLostReference) : withRow(reference_.first, row).text();
    }

    [[nodiscard]] std::string area() const {
        if (!isOutside()) {
            return written(withRow(reference_.first, map_.row(area_.first.row)),
                           withRow(*reference_.last, map_.row(area_.last.row)));
        }
        const std::optional<excel::CellArea> moved = map_.area(area_);
        if (!moved) return std::string(kLostReference);
        return written(withRow(reference_.first, moved->first.row),
                       withRow(*reference_.last, moved->last.row));
    }

    [[nodiscard]] std::string withRows(const Corner& corner, int first, int last) const {
        return written(withRow(corner, first), withRow(corner, last));
    }

    /// A relative row moves with the repetition that the formula is in.
    [[nodiscard]] Corner withRow(Corner corner, int row) const {
        corner.row = row;
        if (!corner.rowStays) corner.row += offset_;
        return corner;
    }

    const FormulaReference& reference_;
    const RowMap& map_;
    excel::CellArea area_;
    std::optional<std::size_t> ownGroup_;  ///< of the formula, if the reference is to its own sheet
    int offset_;
};

std::optional<std::size_t> groupOn(std::size_t sheet, const FormulaPlace& place) {
    return sheet == place.sheet ? place.group : std::nullopt;
}

}  // namespace

MovableFormula::MovableFormula(std::string_view formula, std::size_t sheet, const SheetFinder& findSheet,
                               SingleCells singleCells) {
    for (FormulaReader reader(formula); reader.next();) {
        const FormulaReference* const reference = reader.reference();
        const bool isOwn = reference != nullptr && reference->sheet.empty();
        const std::optional<std::size_t> found = reference == nullptr || reference->isForeign ? std::nullopt
                                                 : isOwn ? std::optional(sheet)
                                                         : findSheet(reference->sheet);
        if (!found) {
            if (parts_.empty() || parts_.back().reference) parts_.emplace_back();
            parts_.back().text += reader.text();
            continue;
        }
        parts_.push_back({std::string(reader.text()), *reference, *found});
        if (singleCells == SingleCells::Grow) parts_.back().reference->isSummed = true;
    }
}

bool MovableFormula::canMove(std::span<const RowMap> maps) const {
    return std::ranges::any_of(
        parts_, [&](const Part& part) { return part.reference && !maps[part.sheet].isEmpty(); });
}

bool MovableFormula::isTornBy(std::span<const RowMap> maps, const FormulaPlace& place) const {
    return std::ranges::any_of(parts_, [&](const Part& part) {
        if (!part.reference || (!part.reference->last && !part.reference->isSummed)) return false;
        const RowMap& map = maps[part.sheet];
        const ReferenceMover mover(*part.reference, map, groupOn(part.sheet, place), 0);
        const excel::CellArea area = areaOf(*part.reference);
        return area.first.row > 0 && mover.isOutside() &&
               std::ranges::any_of(map.groups(),
                                   [&](const RepeatedRows& rows) { return rows.isCutBy(area); });
    });
}

std::string MovableFormula::text(std::span<const RowMap> maps, const FormulaPlace& place) const {
    const int offset = place.group ? maps[place.sheet].groups()[*place.group].height() * place.copy : 0;
    std::string text;
    for (const Part& part : parts_) {
        if (!part.reference) {
            text += part.text;
            continue;
        }
        text += ReferenceMover(*part.reference, maps[part.sheet], groupOn(part.sheet, place), offset).text();
    }
    return text;
}

}  // namespace mergeloom::embedded
