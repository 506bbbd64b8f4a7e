#include "office/graft/LinePartners.h"

#include "base/Text.h"
#include "office/graft/Refusal.h"
#include "office/graft/SequenceAlignment.h"

#include <optional>
#include <span>
#include <string>
#include <utility>

namespace mergeloom::graft {

namespace {

/// Returns the character that is compared between two writers.
char32_t letterOf(const Unit& unit) {
    return isSymbol(unit) ? kObject : unit.code;
}

bool mayDiffer(const Unit& unit) {
    return unit.code == U'\f' || letterOf(unit) == kObject;
}

/// Returns the key of a line without the units that may differ.
std::string lettersKeyOf(const Line& line) {
    Line letters = line;
    std::erase_if(letters.units, mayDiffer);
    return textKeyOf(letters);
}

template <typename Key>
std::vector<std::string> keysOf(std::span<const Line> lines, const Key& keyOf) {
    std::vector<std::string> keys;
    keys.reserve(lines.size());
    for (const Line& line : lines)
        keys.push_back(keyOf(line));
    return keys;
}

std::optional<std::vector<Gap>> gapsOf(std::span<const Line> lines, std::span<const Line> others,
                                       std::string (*keyOf)(const Line&)) {
    return gapsBetween(keysOf(lines, keyOf), keysOf(others, keyOf));
}

/// Replaces the units of a line of the original by those of the export's line with the same letters.
void takeUnits(const Line& exported, Line& original) {
    std::vector<Unit> units;
    std::size_t own = 0;
    const auto& owns = original.units;
    for (const Unit& wanted : exported.units) {
        while (own < owns.size() && mayDiffer(owns[own]) && letterOf(owns[own]) != letterOf(wanted))
            ++own;
        const bool isThere = own < owns.size() && letterOf(owns[own]) == letterOf(wanted);
        const CharacterPosition next = own < owns.size() ? owns[own].start : original.mark;
        units.push_back(isThere ? owns[own++] : Unit{wanted.code, next, next, 0, {}});
    }
    original.units = std::move(units);
}

}  // namespace

std::vector<std::size_t> partnersByText(const std::vector<Line>& lines, std::vector<Line>& originals) {
    const auto gaps = gapsOf(lines, originals, textKeyOf);
    if (!gaps) throw Refusal("LibreOffice reads the text of the document differently from the file");
    std::vector<std::size_t> partners = partnersOf(*gaps, lines.size());
    for (const Gap& gap : *gaps) {
        const auto exported = std::span(lines).subspan(gap.formerStart, gap.formerEnd - gap.formerStart);
        const auto own = std::span(originals).subspan(gap.nowStart, gap.nowEnd - gap.nowStart);
        const auto gapsInside = gapsOf(exported, own, lettersKeyOf);
        if (!gapsInside) continue;
        const std::vector<std::size_t> inGap = partnersOf(*gapsInside, exported.size());
        for (std::size_t line = 0; line < inGap.size(); ++line) {
            if (inGap[line] == kNoPartner) continue;
            partners[gap.formerStart + line] = gap.nowStart + inGap[line];
            takeUnits(exported[line], own[inGap[line]]);
        }
    }
    return partners;
}

}  // namespace mergeloom::graft
