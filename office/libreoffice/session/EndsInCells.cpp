#include "office/libreoffice/session/EndsInCells.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/MarkTags.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

constexpr std::string_view kSpaces = " \t\r\n";
constexpr std::string_view kParagraphEnd = "</w:p>";

bool isParagraph(std::string_view tag) {
    return tag.starts_with("<w:p/") || tag.starts_with("<w:p ");
}

/// Returns the XML before the marks at its end, without blanks and empty elements such as other marks.
std::string_view beforeMarks(std::string_view xml) {
    while (true) {
        xml = xml.substr(0, xml.find_last_not_of(kSpaces) + 1);
        const std::size_t tag = xml.rfind('<');
        if (!xml.ends_with("/>") || tag == std::string_view::npos || isParagraph(xml.substr(tag))) return xml;
        xml = xml.substr(0, tag);
    }
}

/// Returns the index at which an empty paragraph of this beginning closes itself; npos when there is none or
/// it has content.
std::size_t closingOf(std::string_view xml, std::string_view beginning) {
    const std::size_t tag = xml.rfind(beginning);
    if (tag == std::string_view::npos) return tag;
    const std::size_t end = xml.find('>', tag);
    return xml[end - 1] == '/' ? end - 1 : std::string_view::npos;
}

/// Returns the greater index; npos counts as less than any other.
std::size_t later(std::size_t one, std::size_t other) {
    // Adding one turns npos, the greatest number, into the least.
    return std::max(one + 1, other + 1) - 1;
}

void addToParagraph(std::map<std::size_t, XmlChange>& changes, std::string_view xml, std::size_t at,
                    const std::string& tag) {
    XmlChange& change = changes[at];
    if (xml[at] == '/') {
        if (change.added.empty()) change = {2, ">" + std::string(kParagraphEnd)};
        change.added.insert(change.added.size() - kParagraphEnd.size(), tag);
    } else {
        change.added += tag;
    }
}

}  // namespace

std::optional<std::string> withEndsInCells(const std::string& xml) {
    std::map<std::string, std::size_t> starts;
    for (const MarkTag& start : startTags(xml))
        starts[start.id] = start.at;
    std::map<std::size_t, XmlChange> changes;
    for (const MarkTag& end : endTags(xml)) {
        const std::string_view before = beforeMarks(std::string_view(xml).substr(0, end.at));
        if (!before.ends_with("</w:tr>") && !before.ends_with("</w:tbl>")) continue;
        const std::size_t place =
            later(before.rfind(kParagraphEnd), later(closingOf(before, "<w:p/"), closingOf(before, "<w:p ")));
        const auto start = starts.find(end.id);
        if (place == std::string::npos || start == starts.end() || start->second > place) continue;
        changes[end.at].removed = end.length;
        addToParagraph(changes, xml, place, endTag(end.id));
    }
    return withChanges(xml, changes);
}

std::optional<std::string> packageWithEndsInCells(const std::string& bytes, const std::string& fileName) try {
    if (!bytes.starts_with("PK")) return std::nullopt;
    return packageWithMendedParts(bytes, fileName, withEndsInCells);
} catch (const AutomationError&) {
    return std::nullopt;
}

}  // namespace mergeloom::libreoffice
