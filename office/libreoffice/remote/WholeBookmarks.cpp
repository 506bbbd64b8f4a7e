#include "office/libreoffice/remote/WholeBookmarks.h"

#include "office/libreoffice/session/MarkTags.h"

#include <map>
#include <string_view>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

/// The marks that were written for one bookmark.
struct Marks {
    std::vector<MarkTag> starts;
    std::vector<MarkTag> ends;
};

constexpr std::string_view kTableEnd = "</w:tbl>";

std::map<std::string, Marks> marksByName(std::string_view xml) {
    std::map<std::string, Marks> marks;
    std::map<std::string, std::string> names;
    for (const MarkTag& start : startTags(xml)) {
        marks[start.name].starts.push_back(start);
        names[start.id] = start.name;
    }
    for (const MarkTag& end : endTags(xml))
        marks[names[end.id]].ends.push_back(end);
    return marks;
}

std::size_t afterTable(std::string_view xml, std::size_t at) {
    const std::size_t end = xml.find(kTableEnd, at);
    return end == std::string_view::npos ? at : end + kTableEnd.size();
}

}  // namespace

std::optional<std::string> withWholeBookmarks(const std::string& xml,
                                              const std::set<std::string>& namesOverTables) {
    std::map<std::size_t, XmlChange> changes;
    for (const auto& [name, marks] : marksByName(xml)) {
        const bool isOverTable = namesOverTables.contains(name);
        if (marks.starts.empty() || marks.ends.empty()) continue;
        if (marks.starts.size() < 2 && !isOverTable) continue;
        for (std::size_t i = 1; i < marks.starts.size(); ++i)
            changes[marks.starts[i].at].removed = marks.starts[i].length;
        for (const MarkTag& end : marks.ends)
            changes[end.at].removed = end.length;
        const std::size_t last = marks.ends.back().at;
        changes[isOverTable ? afterTable(xml, last) : last].added += endTag(marks.starts.front().id);
    }
    return withChanges(xml, changes);
}

std::optional<std::string> packageWithWholeBookmarks(const std::string& bytes, const std::string& fileName,
                                                     const std::set<std::string>& namesOverTables) {
    return packageWithMendedParts(
        bytes, fileName, [&](const std::string& xml) { return withWholeBookmarks(xml, namesOverTables); });
}

}  // namespace mergeloom::libreoffice
