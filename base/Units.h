#pragma once

#include <compare>
#include <cstdint>

namespace mergeloom {

/// A length of text in UTF-16 code units, the unit in which Word counts characters.
struct CharacterCount {
    std::int64_t value = 0;

    friend auto operator<=>(const CharacterCount&, const CharacterCount&) = default;  // NOLINT
    friend CharacterCount operator+(CharacterCount a, CharacterCount b) { return {a.value + b.value}; }
    friend CharacterCount operator-(CharacterCount a, CharacterCount b) { return {a.value - b.value}; }
};

/// A place between two characters of one story, counted in UTF-16 code units from the story's start. A
/// paragraph mark, an end-of-cell mark, an end-of-row mark and an inline picture count one each.
struct CharacterPosition {
    std::int64_t value = 0;

    friend auto operator<=>(const CharacterPosition&, const CharacterPosition&) = default;  // NOLINT
    friend CharacterPosition operator+(CharacterPosition p, CharacterCount n) { return {p.value + n.value}; }
    friend CharacterPosition operator-(CharacterPosition p, CharacterCount n) { return {p.value - n.value}; }
    friend CharacterCount operator-(CharacterPosition a, CharacterPosition b) { return {a.value - b.value}; }
};

/// English Metric Units, the length unit of DrawingML: 914400 to an inch (ECMA-376 Part 1, 20.1.10.16).
struct Emu {
    std::int64_t value = 0;

    friend auto operator<=>(const Emu&, const Emu&) = default;  // NOLINT
};

/// A length in points, 72 to an inch, in which Excel measures the places and sizes of cells and pictures.
struct Points {
    double value = 0;

    friend auto operator<=>(const Points&, const Points&) = default;  // NOLINT
};

/// The width of a column as Excel shows it: the number of digits of the workbook's default font that fit into
/// it.
struct ColumnWidth {
    double value = 0;

    friend auto operator<=>(const ColumnWidth&, const ColumnWidth&) = default;  // NOLINT
};

inline constexpr std::int64_t kEmuPerInch = 914400;
inline constexpr std::int64_t kEmuPerPoint = 12700;
inline constexpr std::int64_t kEmuPerTwip = 635;

}  // namespace mergeloom
