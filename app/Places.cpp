#include "app/Places.h"

#include "app/ListFormatting.h"

#include <cstdint>
#include <ostream>
#include <string_view>
#include <vector>

namespace mergeloom {

namespace {

void writeKey(std::ostream& stream, std::string_view key) {
    stream << ", \"" << key << "\": ";
}

void writeMember(std::ostream& stream, std::string_view key, std::string_view text) {
    writeKey(stream, key);
    writeJsonText(stream, text);
}

void writeMember(std::ostream& stream, std::string_view key, std::int64_t number) {
    writeKey(stream, key);
    stream << number;
}

/// Writes null for a value that is empty or 0.
template <typename Value>
void writeOptional(std::ostream& stream, std::string_view key, const Value& value) {
    if (value != Value{}) return writeMember(stream, key, value);
    writeKey(stream, key);
    stream << "null";
}

void writeLocation(std::ostream& stream, const TextLocation& location) {
    writeMember(stream, "story", location.story);
    writeMember(stream, "start", location.start.value);
    writeMember(stream, "end", location.end.value);
}

void writeLocation(std::ostream& stream, const CellLocation& location) {
    writeOptional(stream, "refersTo", location.refersTo);
    writeOptional(stream, "sheet", location.sheet);
    writeOptional(stream, "row", location.row);
    writeOptional(stream, "column", location.column);
}

void writePlace(std::ostream& stream, const Place& place) {
    stream << "{\"name\": ";
    writeJsonText(stream, place.name);
    writeMember(stream, "kind", place.kind);
    writeMember(stream, "text", place.text);
    std::visit([&](const auto& location) { writeLocation(stream, location); }, place.location);
    stream << "}";
}

/// Writes an array with an object for each place: "name", "kind" and "text" are texts. For a document follow
/// "story", a text, and "start" and "end", numbers of characters from the story's start. For a workbook
/// follow "refersTo", the formula of a name, "sheet", a text, and "row" and "column", the numbers of the
/// first cell counted from 1; a value that a place does not have is null.
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

/// Writes a line for each place below a heading, with aligned columns.
void writePlacesTable(std::ostream& stream, const std::vector<Place>& places) {
    std::vector<TextRow> rows{{"NAME", "KIND", "WHERE", "TEXT"}};
    for (const Place& place : places)
        rows.push_back({place.name, place.kind, shownInLine(place.where), shownInLine(place.text)});
    writeTextTable(stream, rows);
}

}  // namespace

void writePlaces(std::ostream& stream, const std::vector<Place>& places, ListFormat format) {
    if (format == ListFormat::Json) {
        writePlacesJson(stream, places);
    } else {
        writePlacesTable(stream, places);
    }
}

}  // namespace mergeloom
