#include "office/libreoffice/word/WholeBookmarks.h"

#include "office/embedded/package/Package.h"

#include <map>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

struct MarkTag {
    std::size_t at = 0;
    std::size_t length = 0;
    std::string id;
    std::string name;  ///< of a start
};

/// All that was written for the bookmark of one name.
struct Marks {
    std::vector<MarkTag> starts;
    std::vector<MarkTag> ends;
};

constexpr std::string_view kStart = "<w:bookmarkStart ";
constexpr std::string_view kEnd = "<w:bookmarkEnd ";
constexpr std::string_view kTableEnd = "</w:tbl>";

std::string attribute(std::string_view tag, std::string_view name) {
    const std::string before = " " + std::string(name) + "=\"";
    const std::size_t at = tag.find(before);
    if (at == std::string_view::npos) return {};
    const std::size_t value = at + before.size();
    return std::string(tag.substr(value, tag.find('"', value) - value));
}

std::vector<MarkTag> tagsOf(std::string_view xml, std::string_view kind) {
    std::vector<MarkTag> tags;
    for (std::size_t at = xml.find(kind); at != std::string_view::npos; at = xml.find(kind, at + 1)) {
        const std::string_view tag = xml.substr(at, xml.find('>', at) + 1 - at);
        tags.push_back({at, tag.size(), attribute(tag, "w:id"), attribute(tag, "w:name")});
    }
    return tags;
}

std::map<std::string, Marks> marksByName(std::string_view xml) {
    std::map<std::string, Marks> marks;
    std::map<std::string, std::string> names;
    for (const MarkTag& start : tagsOf(xml, kStart)) {
        marks[start.name].starts.push_back(start);
        names[start.id] = start.name;
    }
    for (const MarkTag& end : tagsOf(xml, kEnd))
        marks[names[end.id]].ends.push_back(end);
    return marks;
}

/// What goes out at a place of the XML, and what comes in there.
struct Change {
    std::size_t removed = 0;
    std::string added;
};

std::size_t behindTable(std::string_view xml, std::size_t at) {
    const std::size_t end = xml.find(kTableEnd, at);
    return end == std::string_view::npos ? at : end + kTableEnd.size();
}

class BytesSink final : public ByteSink {
  public:
    void write(std::span<const char> part) override { bytes.append(part.data(), part.size()); }
    std::string bytes;
};

}  // namespace

std::optional<std::string> withWholeBookmarks(const std::string& xml,
                                              const std::set<std::string>& namesOverTables) {
    std::map<std::size_t, Change> changes;
    for (const auto& [name, marks] : marksByName(xml)) {
        const bool isOverTable = namesOverTables.contains(name);
        if (marks.starts.empty() || marks.ends.empty()) continue;
        if (marks.starts.size() < 2 && !isOverTable) continue;
        for (std::size_t i = 1; i < marks.starts.size(); ++i)
            changes[marks.starts[i].at].removed = marks.starts[i].length;
        for (const MarkTag& end : marks.ends)
            changes[end.at].removed = end.length;
        const std::size_t last = marks.ends.back().at;
        changes[isOverTable ? behindTable(xml, last) : last].added +=
            std::string(kEnd) + "w:id=\"" + marks.starts.front().id + "\"/>";
    }
    if (changes.empty()) return std::nullopt;
    std::string mended;
    std::size_t from = 0;
    for (const auto& [at, change] : changes) {
        mended.append(xml, from, at - from).append(change.added);
        from = at + change.removed;
    }
    return mended.append(xml, from);
}

std::optional<std::string> packageWithWholeBookmarks(const std::string& bytes, const std::string& fileName,
                                                     const std::set<std::string>& namesOverTables) {
    embedded::Package package = embedded::Package::read(bytes, fileName);
    bool isMended = false;
    for (const std::string& part : package.partNames()) {
        if (!part.starts_with("/word/") || !part.ends_with(".xml")) continue;
        const std::optional<std::string> mended = withWholeBookmarks(package.readPart(part), namesOverTables);
        if (mended) package.writePart(part, *mended);
        isMended |= mended.has_value();
    }
    if (!isMended) return std::nullopt;
    BytesSink sink;
    package.write(sink);
    return sink.bytes;
}

}  // namespace mergeloom::libreoffice
