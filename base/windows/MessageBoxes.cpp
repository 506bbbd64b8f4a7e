#include "base/windows/MessageBoxes.h"

#include "base/windows/WindowsText.h"

#include <windows.h>

#include <utility>

namespace mergeloom::windows {

namespace {

constexpr const wchar_t* kTitle = L"Mergeloom";

UINT iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Exclamation:
            return MB_ICONEXCLAMATION;
        case MessageIcon::Question:
            return MB_ICONQUESTION;
        case MessageIcon::Information:
            return MB_ICONINFORMATION;
        case MessageIcon::Critical:
            return MB_ICONERROR;
        default:
            return 0;
    }
}

UINT buttonsOf(const Message& message) {
    const bool isCancel = message.preferred == DefaultButton::Cancel;
    switch (message.buttons) {
        case MessageButtons::OkCancel:
            return MB_OKCANCEL | (isCancel ? MB_DEFBUTTON2 : 0);
        case MessageButtons::YesNo:
            return MB_YESNO;
        case MessageButtons::YesNoCancel:
            return MB_YESNOCANCEL | (isCancel ? MB_DEFBUTTON3 : 0);
        default:
            return MB_OK;
    }
}

}  // namespace

bool areErrorsUnseen() {
    const HANDLE errors = ::GetStdHandle(STD_ERROR_HANDLE);
    if (errors == nullptr || errors == INVALID_HANDLE_VALUE) return true;
    DWORD mode = 0;
    DWORD processes[2];
    return ::GetConsoleMode(errors, &mode) != 0 && ::GetConsoleProcessList(processes, 2) == 1;
}

MessageAnswer MessageBoxes::show(const Message& message) {
    const UINT style = iconOf(message.icon) | buttonsOf(message) | MB_SETFOREGROUND;
    switch (::MessageBoxW(nullptr, wideText(message.text).c_str(), kTitle, style)) {
        case IDOK:
            return MessageAnswer::Ok;
        case IDCANCEL:
            return MessageAnswer::Cancel;
        case IDYES:
            return MessageAnswer::Yes;
        case IDNO:
            return MessageAnswer::No;
        default:
            // A service has no desktop on which a box could be shown.
            return defaultAnswer(message);
    }
}

MessageBoxBuffer::int_type MessageBoxBuffer::overflow(int_type character) {
    if (!traits_type::eq_int_type(character, traits_type::eof()))
        text_ += traits_type::to_char_type(character);
    return traits_type::not_eof(character);
}

std::streamsize MessageBoxBuffer::xsputn(const char* text, std::streamsize count) {
    text_.append(text, static_cast<std::size_t>(count));
    return count;
}

int MessageBoxBuffer::sync() {
    const std::string text = std::exchange(text_, {});
    if (!text.empty()) MessageBoxes().show({text, MessageIcon::Exclamation});
    return 0;
}

}  // namespace mergeloom::windows
