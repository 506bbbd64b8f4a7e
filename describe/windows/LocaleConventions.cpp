#include "base/windows/WindowsText.h"
#include "describe/ValueFormat.h"

#include <windows.h>

#include <array>
#include <string_view>
#include <utility>

namespace mergeloom::describe {

namespace {

std::wstring localeText(LCTYPE kind) {
    std::array<wchar_t, 128> text{};
    const int size =
        ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, kind, text.data(), static_cast<int>(text.size()));
    return size > 0 ? std::wstring(text.data()) : std::wstring();
}

/// The pieces of the date and time formats of Windows, and their names in strftime. Longer pieces are first.
constexpr std::pair<std::wstring_view, std::string_view> kPieces[] = {
    {L"yyyy", "%Y"}, {L"yy", "%y"},   {L"y", "%y"},   {L"MMMM", "%B"}, {L"MMM", "%b"}, {L"MM", "%m"},
    {L"M", "%#m"},   {L"dddd", "%A"}, {L"ddd", "%a"}, {L"dd", "%d"},   {L"d", "%#d"},  {L"HH", "%H"},
    {L"H", "%#H"},   {L"hh", "%I"},   {L"h", "%#I"},  {L"mm", "%M"},   {L"m", "%#M"},  {L"ss", "%S"},
    {L"s", "%#S"},   {L"tt", "%p"},   {L"t", "%p"},   {L"gg", ""},     {L"g", ""},
};

std::string formatOfPicture(std::wstring_view picture) {
    std::string format;
    while (!picture.empty()) {
        bool isPiece = false;
        for (const auto& [piece, name] : kPieces) {
            if (!picture.starts_with(piece)) continue;
            format += name;
            picture.remove_prefix(piece.size());
            isPiece = true;
            break;
        }
        if (isPiece) continue;
        // Text is in single quotes.
        if (picture.front() == L'%') format += '%';
        if (picture.front() != L'\'') format += windows::utf8Text(picture.substr(0, 1));
        picture.remove_prefix(1);
    }
    return format;
}

}  // namespace

Conventions conventionsOfLocale() {
    return {windows::utf8Text(localeText(LOCALE_SDECIMAL)), windows::utf8Text(localeText(LOCALE_STHOUSAND)),
            formatOfPicture(localeText(LOCALE_SSHORTDATE)), formatOfPicture(localeText(LOCALE_STIMEFORMAT))};
}

}  // namespace mergeloom::describe
