#include "base/Text.h"

#include <windows.h>

#include <array>
#include <memory>
#include <string>

/// Letters and their case from the tables of Windows, with additions of Unicode for case folding. The tables
/// depend on the version of Windows.
namespace mergeloom {

namespace {

constexpr std::size_t kUnits = 0x10000;

struct FoldedPair {
    char16_t letter;
    char16_t folded;
};

/// Letters with a folding that is not their small letter (CaseFolding.txt of Unicode, statuses C and S).
/// Those of Cherokee follow below.
constexpr FoldedPair kFoldings[] = {
    {0x00B5, 0x03BC}, {0x017F, 0x0073}, {0x0345, 0x03B9}, {0x03C2, 0x03C3}, {0x03D0, 0x03B2},
    {0x03D1, 0x03B8}, {0x03D5, 0x03C6}, {0x03D6, 0x03C0}, {0x03F0, 0x03BA}, {0x03F1, 0x03C1},
    {0x03F4, 0x03B8}, {0x03F5, 0x03B5}, {0x01C5, 0x01C6}, {0x01C8, 0x01C9}, {0x01CB, 0x01CC},
    {0x01F2, 0x01F3}, {0x1C80, 0x0432}, {0x1C81, 0x0434}, {0x1C82, 0x043E}, {0x1C83, 0x0441},
    {0x1C84, 0x0442}, {0x1C85, 0x0442}, {0x1C86, 0x044A}, {0x1C87, 0x0463}, {0x1C88, 0xA64B},
    {0x1E9B, 0x1E61}, {0x1E9E, 0x00DF}, {0x1FBE, 0x03B9}, {0x2126, 0x03C9}, {0x212A, 0x006B},
    {0x212B, 0x00E5}, {0x0130, 0x0130},
};

/// The letters of Cherokee fold to their capital ones: these capital ones, and the small ones of both blocks.
constexpr FoldedPair kCherokee = {0x13A0, 0xAB70};
constexpr char16_t kCherokeeLetters = 0x50;
constexpr FoldedPair kLateCherokee = {0x13F0, 0x13F8};
constexpr char16_t kLateCherokeeLetters = 6;

/// Numbers that are written as letters (category Nl), which are none in names.
struct UnitRange {
    char16_t first;
    char16_t last;
};
constexpr UnitRange kLetterNumbers[] = {{0x16EE, 0x16F0}, {0x2160, 0x2182}, {0x2185, 0x2188},
                                        {0x3007, 0x3007}, {0x3021, 0x3029}, {0x3038, 0x303A},
                                        {0xA6E6, 0xA6EF}};

std::wstring smallLetters(std::wstring_view text) {
    std::wstring result(text.size(), L'\0');
    const int length =
        ::LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_LOWERCASE, text.data(), static_cast<int>(text.size()),
                        result.data(), static_cast<int>(result.size()), nullptr, nullptr, 0);
    return length == static_cast<int>(text.size()) ? result : std::wstring(text);
}

/// The properties of all characters of one unit, asked for once: a call for each letter would be slow.
class UnitTables {
  public:
    static const UnitTables& instance() {
        static const auto tables = std::make_unique<const UnitTables>();
        return *tables;
    }

    UnitTables() {
        std::wstring all(kUnits, L'\0');
        for (std::size_t unit = 0; unit < kUnits; ++unit)
            all[unit] = static_cast<wchar_t>(unit);
        ::GetStringTypeW(CT_CTYPE1, all.data(), static_cast<int>(all.size()), types_.data());
        for (const auto& [first, last] : kLetterNumbers) {
            for (std::size_t unit = first; unit <= last; ++unit)
                types_[unit] = 0;
        }
        folded_ = smallLetters(all);
        for (const auto& [letter, folded] : kFoldings)
            folded_[letter] = static_cast<wchar_t>(folded);
        foldTo(kCherokee, kCherokeeLetters);
        foldTo(kLateCherokee, kLateCherokeeLetters);
    }

    [[nodiscard]] bool isLetter(char32_t unit) const { return (types_[unit] & C1_ALPHA) != 0; }
    [[nodiscard]] char32_t folded(char32_t unit) const { return folded_[unit]; }

  private:
    /// Folds both cases of a row of letters to the first.
    void foldTo(const FoldedPair& firstLetters, char16_t count) {
        for (char16_t i = 0; i < count; ++i) {
            const auto folded = static_cast<wchar_t>(firstLetters.letter + i);
            folded_[folded] = folded;
            folded_[firstLetters.folded + i] = folded;
        }
    }

    std::array<WORD, kUnits> types_{};
    std::wstring folded_;
};

}  // namespace

char32_t foldedCodePoint(char32_t codePoint) {
    if (codePoint < kUnits) return UnitTables::instance().folded(codePoint);
    std::string text;
    appendCodePoint(text, codePoint);
    const std::u16string units = toUtf16(text);
    const std::wstring folded = smallLetters(std::wstring(units.begin(), units.end()));
    return firstCodePoint(fromUtf16(std::u16string(folded.begin(), folded.end())));
}

bool isLongNameLetter(char32_t codePoint) {
    return codePoint < kUnits && UnitTables::instance().isLetter(codePoint);
}

}  // namespace mergeloom
