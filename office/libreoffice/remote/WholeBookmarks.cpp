#include "office/libreoffice/remote/WholeBookmarks.h"

#include "office/libreoffice/session/MarkTags.h"

#include <iterator>
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

/// The parts of the XML that repeat a text box for programs that cannot show it (ECMA-376 Part 3, 10.2.3).
/// Their bookmarks have the names of those that they repeat.
class CopiedText {
  public:
    explicit CopiedText(std::string_view xml) {
        for (std::size_t at = xml.find(kStart); at != std::string_view::npos; at = xml.find(kStart, at + 1))
            ends_[at] = xml.find(kEnd, at);
    }

    [[nodiscard]] bool contains(const MarkTag& tag) const {
        const auto after = ends_.upper_bound(tag.at);
        return after != ends_.begin() && tag.at < std::prev(after)->second;
    }

  private:
    static constexpr std::string_view kStart = "<mc:Fallback>";
    static constexpr std::string_view kEnd = "</mc:Fallback>";

    std::map<std::size_t, std::size_t> ends_;  ///< by the starts
};

std::map<std::string, Marks> marksByName(std::string_view xml) {
    std::map<std::string, Marks> marks;
    std::map<std::string, std::string> names;
    const CopiedText copies(xml);
    for (const MarkTag& start : startTags(xml)) {
        if (copies.contains(start)) continue;
        marks[start.name].starts.push_back(start);
        names[start.id] = start.name;
    }
    for (const MarkTag& end : endTags(xml))
        if (!copies.contains(end)) marks[names[end.id]].ends.push_back(end);
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
