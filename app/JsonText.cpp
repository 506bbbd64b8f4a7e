#include "app/JsonText.h"

namespace mergeloom {

namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

}  // namespace

void writeJsonText(std::ostream& stream, std::string_view text) {
    stream << '"';
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            stream << '\\' << character;
        } else if (code < 0x20 || code == 0x7F) {
            stream << "\\u00" << kHexDigits[code / 16] << kHexDigits[code % 16];
        } else {
            stream << character;
        }
    }
    stream << '"';
}

}  // namespace mergeloom
