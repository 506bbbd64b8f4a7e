#include "office/graft/StoryDifference.h"

#include "base/Text.h"
#include "office/graft/SequenceAlignment.h"

#include <algorithm>

namespace mergeloom::graft {

namespace {

/// A word, another unit or the mark of a line.
struct Token {
    std::string key;
    LinePlace start;
    LinePlace end;

    [[nodiscard]] bool isMark() const { return end.line > start.line; }
};

bool isPartOfWord(char32_t code) {
    const bool isAsciiLetter = (code >= U'a' && code <= U'z') || (code >= U'A' && code <= U'Z');
    const bool isBeyondAscii =
        code >= 0xC0 && code != kObject && code != kField && !(code >= 0x2000 && code < 0x2070);
    return isAsciiLetter || isDigit(code) || isBeyondAscii;
}

std::string markKey(const Line& line) {
    return "\r" + std::to_string(static_cast<int>(line.end)) + std::to_string(line.depth);
}

std::vector<Token> tokensOf(const std::vector<Line>& lines, std::size_t start, std::size_t end) {
    std::vector<Token> tokens;
    for (std::size_t number = start; number < end; ++number) {
        const std::vector<Unit>& units = lines[number].units;
        for (std::size_t unit = 0; unit < units.size();) {
            Token token{{}, {number, unit}, {}};
            const bool isWord = isPartOfWord(units[unit].code);
            do
                appendCodePoint(token.key, units[unit++].code);
            while (isWord && unit < units.size() && isPartOfWord(units[unit].code));
            token.end = {number, unit};
            tokens.push_back(std::move(token));
        }
        tokens.push_back({markKey(lines[number]), {number, units.size()}, {number + 1, 0}});
    }
    return tokens;
}

/// Returns the keys of tokens or of lines.
template <typename Element>
std::vector<std::string> keysOf(const std::vector<Element>& elements) {
    std::vector<std::string> keys;
    keys.reserve(elements.size());
    for (const Element& element : elements)
        keys.push_back(element.key);
    return keys;
}

/// Compares the lines of one gap token by token.
class GapReader {
  public:
    GapReader(const std::vector<Line>& former, const std::vector<Line>& now, const Gap& gap)
        : formerLines_(former),
          nowLines_(now),
          gap_(gap),
          former_(tokensOf(former, gap.formerStart, gap.formerEnd)),
          now_(tokensOf(now, gap.nowStart, gap.nowEnd)) {}

    /// Returns false if the lines differ too much to be compared.
    bool read(StoryDifference& difference) {
        const auto gaps = gapsBetween(keysOf(former_), keysOf(now_));
        if (!gaps) return false;
        beginLines();
        for (const Gap& gap : *gaps)
            difference.edits.push_back(trimmed(editOf(gap)));
        const std::vector<std::size_t> partners = partnersOf(*gaps, former_.size());
        for (std::size_t token = 0; token < partners.size(); ++token)
            if (partners[token] != kNoPartner) pair(former_[token], now_[partners[token]]);
        std::ranges::move(touched_, std::back_inserter(difference.touched));
        return true;
    }

  private:
    void beginLines() {
        for (std::size_t line = gap_.nowStart; line < gap_.nowEnd; ++line)
            touched_.push_back(
                {line, std::vector<std::optional<LinePlace>>(nowLines_[line].units.size()), {}});
    }
    [[nodiscard]] TextEdit editOf(const Gap& gap) const {
        return {placeBefore(former_, gap.formerStart, gap_.formerStart, gap_.formerEnd),
                placeBefore(former_, gap.formerEnd, gap_.formerStart, gap_.formerEnd),
                placeBefore(now_, gap.nowStart, gap_.nowStart, gap_.nowEnd),
                placeBefore(now_, gap.nowEnd, gap_.nowStart, gap_.nowEnd)};
    }
    static LinePlace placeBefore(const std::vector<Token>& tokens, std::size_t token, std::size_t firstLine,
                                 std::size_t endLine) {
        if (tokens.empty()) return {firstLine, 0};
        return token < tokens.size() ? tokens[token].start : LinePlace{endLine, 0};
    }
    /// Excludes the characters with which both texts begin and end.
    TextEdit trimmed(TextEdit edit) {
        while (edit.formerStart < edit.formerEnd && edit.nowStart < edit.nowEnd &&
               areEqual(edit.formerStart, edit.nowStart)) {
            pairUnit(edit.formerStart, edit.nowStart);
            ++edit.formerStart.unit;
            ++edit.nowStart.unit;
        }
        while (edit.formerStart < edit.formerEnd && edit.nowStart < edit.nowEnd && edit.formerEnd.unit > 0 &&
               edit.nowEnd.unit > 0 && areEqual(before(edit.formerEnd), before(edit.nowEnd))) {
            --edit.formerEnd.unit;
            --edit.nowEnd.unit;
            pairUnit(edit.formerEnd, edit.nowEnd);
        }
        return edit;
    }
    static LinePlace before(LinePlace place) { return {place.line, place.unit - 1}; }
    /// Returns true if both places have units, not marks, and the units are equal.
    [[nodiscard]] bool areEqual(LinePlace former, LinePlace now) const {
        const std::vector<Unit>& formerUnits = formerLines_[former.line].units;
        const std::vector<Unit>& nowUnits = nowLines_[now.line].units;
        return former.unit < formerUnits.size() && now.unit < nowUnits.size() &&
               formerUnits[former.unit].code == nowUnits[now.unit].code;
    }
    void pair(const Token& former, const Token& now) {
        if (former.isMark()) {
            touched_[now.start.line - gap_.nowStart].mark = former.start.line;
            return;
        }
        for (std::size_t i = 0; now.start.unit + i < now.end.unit; ++i)
            pairUnit({former.start.line, former.start.unit + i}, {now.start.line, now.start.unit + i});
    }
    void pairUnit(LinePlace former, LinePlace now) {
        touched_[now.line - gap_.nowStart].units[now.unit] = former;
    }

    const std::vector<Line>& formerLines_;
    const std::vector<Line>& nowLines_;
    Gap gap_;
    std::vector<Token> former_;
    std::vector<Token> now_;
    std::vector<TouchedLine> touched_;
};

}  // namespace

bool TouchedLine::isInserted() const {
    return !mark && std::ranges::none_of(units, [](const auto& unit) { return unit.has_value(); });
}

std::optional<StoryDifference> differenceBetween(const std::vector<Line>& former,
                                                 const std::vector<Line>& now) {
    const auto gaps = gapsBetween(keysOf(former), keysOf(now));
    if (!gaps) return {};
    StoryDifference difference;
    difference.formerOfLine.assign(now.size(), kNoPartner);
    const std::vector<std::size_t> partners = partnersOf(*gaps, former.size());
    for (std::size_t line = 0; line < partners.size(); ++line)
        if (partners[line] != kNoPartner) difference.formerOfLine[partners[line]] = line;
    for (const Gap& gap : *gaps)
        if (!GapReader(former, now, gap).read(difference)) return {};
    return difference;
}

}  // namespace mergeloom::graft
