#include "base/windows/WindowsText.h"
#include "describe/Conventions.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace mergeloom::describe {

namespace {

std::wstring localeText(LCTYPE kind) {
    std::array<wchar_t, 128> text{};
    const int size =
        ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, kind, text.data(), static_cast<int>(text.size()));
    return size > 0 ? std::wstring(text.data()) : std::wstring();
}

struct Piece {
    std::wstring_view windows;
    std::wstring_view format;  ///< in strftime
};

/// The pieces of the date and time formats of Windows. Longer pieces are first.
constexpr Piece kPieces[] = {
    {L"yyyy", L"%Y"}, {L"yy", L"%y"},   {L"y", L"%y"},   {L"MMMM", L"%B"}, {L"MMM", L"%b"}, {L"MM", L"%m"},
    {L"M", L"%#m"},   {L"dddd", L"%A"}, {L"ddd", L"%a"}, {L"dd", L"%d"},   {L"d", L"%#d"},  {L"HH", L"%H"},
    {L"H", L"%#H"},   {L"hh", L"%I"},   {L"h", L"%#I"},  {L"mm", L"%M"},   {L"m", L"%#M"},  {L"ss", L"%S"},
    {L"s", L"%#S"},   {L"tt", L"%p"},   {L"t", L"%p"},   {L"gg", L""},     {L"g", L""},     {L"%", L"%%"},
};

/// Removes and returns a text in single quotes at the start of a format. In it two quotes are one.
std::wstring takeQuoted(std::wstring_view& picture) {
    std::wstring text;
    std::size_t place = 1;
    for (; place < picture.size(); ++place) {
        if (picture[place] == L'\'' && !picture.substr(place + 1).starts_with(L'\'')) break;
        if (picture[place] == L'\'') ++place;
        text.append(picture[place] == L'%' ? 2 : 1, picture[place]);
    }
    picture.remove_prefix(std::min(place + 1, picture.size()));
    return text;
}

/// Removes a piece, or a character without a meaning, and returns its format.
std::wstring takePiece(std::wstring_view& picture) {
    const auto* const piece =
        std::ranges::find_if(kPieces, [&](const Piece& known) { return picture.starts_with(known.windows); });
    const bool isKnown = piece != std::end(kPieces);
    const std::wstring text(isKnown ? piece->format : picture.substr(0, 1));
    picture.remove_prefix(isKnown ? piece->windows.size() : 1);
    return text;
}

std::string formatOfPicture(std::wstring_view picture) {
    std::wstring format;
    while (!picture.empty())
        format += picture.front() == L'\'' ? takeQuoted(picture) : takePiece(picture);
    return windows::utf8Text(format);
}

}  // namespace

Conventions conventionsOfLocale() {
    // The number of the currency format: the sign before or after the amount, without or with a blank.
    const std::wstring look = localeText(LOCALE_ICURRENCY);
    return {windows::utf8Text(localeText(LOCALE_SDECIMAL)),
            windows::utf8Text(localeText(LOCALE_STHOUSAND)),
            formatOfPicture(localeText(LOCALE_SSHORTDATE)),
            formatOfPicture(localeText(LOCALE_STIMEFORMAT)),
            formatOfPicture(localeText(LOCALE_SLONGDATE)),
            windows::utf8Text(localeText(LOCALE_SCURRENCY)),
            look == L"0" || look == L"2",
            look == L"2" || look == L"3"};
}

}  // namespace mergeloom::describe
