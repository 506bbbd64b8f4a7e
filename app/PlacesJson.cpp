#include "app/PlacesJson.h"

#include <string_view>

namespace mergeloom {

namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

/// A JSON string (RFC 8259, section 7).
void writeText(std::ostream& stream, std::string_view text) {
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

void writePlace(std::ostream& stream, const Place& place) {
    stream << "{\"name\": ";
    writeText(stream, place.name);
    stream << ", \"kind\": ";
    writeText(stream, place.kind);
    stream << ", \"text\": ";
    writeText(stream, place.text);
    stream << ", \"story\": ";
    writeText(stream, place.story);
    stream << ", \"start\": " << place.start.value << ", \"end\": " << place.end.value << "}";
}

}  // namespace

void writePlacesJson(std::ostream& stream, const std::vector<Place>& places) {
    stream << "[";
    const char* separator = "\n  ";
    for (const Place& place : places) {
        stream << separator;
        writePlace(stream, place);
        separator = ",\n  ";
    }
    stream << (places.empty() ? "]\n" : "\n]\n");
}

}  // namespace mergeloom
