#include "office/embedded/sheet/FontMetrics.h"

#include "base/Text.h"
#include "office/embedded/sheet/FontTable.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace mergeloom::embedded {

namespace {

constexpr double kPixelsPerPoint = 96.0 / 72;
constexpr double kPointsPerPixel = 72.0 / 96;
constexpr double kEm = 1000;

constexpr Advances fixedAdvances(std::uint16_t advance) {
    Advances advances{};
    advances.fill(advance);
    return advances;
}

constexpr Advances kCourier = fixedAdvances(600);

/// Fonts with the same metrics.
struct Family {
    const Advances& regular;
    const Advances& bold;
    int line;  ///< distance from the highest ascender to the lowest descender, in thousandths of the em
};

constexpr Family kCalibriFamily{kCalibri, kCalibriBold, 1221};
constexpr Family kArialFamily{kArial, kArialBold, 1117};
constexpr Family kNarrowFamily{kArialNarrow, kArialNarrowBold, 1132};
constexpr Family kTimesFamily{kTimes, kTimesBold, 1107};
constexpr Family kCambriaFamily{kCambria, kCambriaBold, 1172};
constexpr Family kVerdanaFamily{kVerdana, kVerdanaBold, 1215};
constexpr Family kCourierFamily{kCourier, kCourier, 1133};

struct NamedFont {
    std::string_view name;
    const Family& family;
    int digit = 0;  ///< the advance of its digits if it is narrower or wider than its family
};

/// The known fonts by their names in lower case.
constexpr NamedFont kFonts[] = {
    {"calibri", kCalibriFamily},
    {"calibri light", kCalibriFamily},
    {"carlito", kCalibriFamily},
    {"arial", kArialFamily},
    {"helvetica", kArialFamily},
    {"liberation sans", kArialFamily},
    {"aptos", kArialFamily},
    {"aptos display", kArialFamily},
    {"arial narrow", kNarrowFamily},
    {"aptos narrow", kNarrowFamily},
    {"liberation sans narrow", kNarrowFamily},
    {"segoe ui", kArialFamily, 539},
    {"trebuchet ms", kArialFamily, 524},
    {"times new roman", kTimesFamily},
    {"times", kTimesFamily},
    {"liberation serif", kTimesFamily},
    {"garamond", kTimesFamily, 469},
    {"georgia", kCambriaFamily, 613},
    {"cambria", kCambriaFamily},
    {"caladea", kCambriaFamily},
    {"verdana", kVerdanaFamily},
    {"dejavu sans", kVerdanaFamily},
    {"tahoma", kVerdanaFamily, 546},
    {"courier new", kCourierFamily},
    {"courier", kCourierFamily},
    {"liberation mono", kCourierFamily},
    {"consolas", kCourierFamily, 550},
};

/// Words in the name of an unknown font that reveal its look; the first match decides.
struct Hint {
    std::string_view word;
    NamedFont font;
};

constexpr Hint kHints[] = {
    {"mono", {"", kCourierFamily}},  {"courier", {"", kCourierFamily}},  {"code", {"", kCourierFamily}},
    {"narrow", {"", kNarrowFamily}}, {"condensed", {"", kNarrowFamily}}, {"sans", {"", kArialFamily}},
    {"serif", {"", kTimesFamily}},   {"roman", {"", kTimesFamily}},      {"times", {"", kTimesFamily}},
};

constexpr NamedFont kOtherFont{"", kArialFamily};

const NamedFont& fontNamed(const std::string& anyCase) {
    const std::string name = toLowerAscii(anyCase);
    const auto* const known = std::ranges::find(kFonts, name, &NamedFont::name);
    if (known != std::end(kFonts)) return *known;
    const auto isInName = [&](const Hint& hint) { return name.find(hint.word) != std::string::npos; };
    const auto* const hint = std::ranges::find_if(kHints, isInName);
    return hint == std::end(kHints) ? kOtherFont : hint->font;
}

struct CharacterRange {
    char32_t first;
    char32_t last;
};

/// Combining marks, joiners and marks of direction (general categories Mn and Cf of the Unicode standard).
constexpr CharacterRange kWithoutWidth[] = {
    {0xAD, 0xAD},     {0x300, 0x36F},   {0x483, 0x489},   {0x591, 0x5BD},   {0x64B, 0x65F},
    {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2064},
    {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF},
};

/// Wide and full-width characters (Unicode Standard Annex 11).
constexpr CharacterRange kOneEm[] = {
    {0x1100, 0x115F}, {0x2E80, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE4F},
    {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD},
};

template <std::size_t kCount>
bool isIn(const CharacterRange (&ranges)[kCount], char32_t character) {
    return std::ranges::any_of(ranges, [&](const CharacterRange& range) {
        return character >= range.first && character <= range.last;
    });
}

/// The metrics of one font.
class Face {
  public:
    explicit Face(const CellFont& font)
        : named_(fontNamed(font.name)),
          advances_(font.bold ? named_.family.bold : named_.family.regular),
          pixels_(font.size * kPixelsPerPoint) {
        // The bold face is wider than the regular one by the same ratio as in its family.
        const Advances& regular = named_.family.regular;
        if (named_.digit != 0) scale_ = double(named_.digit) / regular['0' - kFirstAdvance];
    }

    [[nodiscard]] double width(char32_t character) const {
        if (isIn(kWithoutWidth, character)) return 0;
        if (isIn(kOneEm, character)) return pixels_;
        return advance(character) * scale_ * pixels_ / kEm;
    }
    [[nodiscard]] double line() const { return named_.family.line * pixels_ / kEm; }

  private:
    [[nodiscard]] double advance(char32_t character) const {
        if (character >= kFirstLike && character <= kLastLike) {
            character = static_cast<unsigned char>(kLike[character - kFirstLike]);
        }
        if (character < kFirstAdvance) return 0;
        // Letters of other scripts are about as wide as digits.
        if (character > kLastAdvance) character = '0';
        return advances_[character - kFirstAdvance];
    }

    const NamedFont& named_;
    const Advances& advances_;
    double pixels_;
    double scale_ = 1;
};

}  // namespace

int digitWidth(const CellFont& font) {
    const Face face(font);
    double widest = 1;
    for (char32_t digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, face.width(digit));
    return static_cast<int>(std::lround(widest));
}

double textWidth(std::string_view text, const CellFont& font) {
    const Face face(font);
    double width = 0;
    while (!text.empty())
        width += face.width(takeCodePoint(text));
    return width;
}

double lineHeight(const CellFont& font) {
    // The space that Excel leaves above and below the characters: between one pixel and two and a half,
    // depending on how the font is fitted to the pixels.
    constexpr double kRoom = 1.75;
    return std::round(Face(font).line() + kRoom) * kPointsPerPixel;
}

}  // namespace mergeloom::embedded
