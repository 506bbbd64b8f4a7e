#include "app/ObjectList.h"

#include "app/ListFormatting.h"
#include "droppers/ObjectLayout.h"

#include <string>

namespace mergeloom {

namespace {

void writeJson(std::ostream& stream, const DatabaseObject& object) {
    stream << "{\"kind\": ";
    writeJsonText(stream, object.kind());
    stream << ", \"name\": ";
    writeJsonText(stream, object.name());
    stream << ", \"view\": ";
    const std::string view = viewNameOf(object.element);
    view.empty() ? void(stream << "null") : writeJsonText(stream, view);
    stream << ", \"controls\": " << controlCount(object) << "}";
}

void writeJson(std::ostream& stream, const std::vector<DatabaseObject>& objects) {
    stream << "[";
    const char* separator = "\n  ";
    for (const DatabaseObject& object : objects) {
        stream << separator;
        writeJson(stream, object);
        separator = ",\n  ";
    }
    stream << (objects.empty() ? "]\n" : "\n]\n");
}

}  // namespace

void writeObjects(std::ostream& stream, const std::vector<DatabaseObject>& objects, ListFormat format) {
    if (format == ListFormat::Json) return writeJson(stream, objects);
    std::vector<TextRow> rows{{"KIND", "NAME", "VIEW", "CONTROLS"}};
    for (const DatabaseObject& object : objects) {
        rows.push_back({object.kind(), shownInLine(object.name()), viewNameOf(object.element),
                        std::to_string(controlCount(object))});
    }
    writeTextTable(stream, rows);
}

}  // namespace mergeloom
