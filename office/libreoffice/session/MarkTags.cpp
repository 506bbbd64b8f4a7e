#include "office/libreoffice/session/MarkTags.h"

#include "base/AutomationError.h"
#include "base/FileStore.h"
#include "office/opc/Package.h"

#include <algorithm>
#include <map>
#include <span>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

constexpr std::string_view kStart = "<w:bookmarkStart ";
constexpr std::string_view kEnd = "<w:bookmarkEnd ";

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

class BytesSink final : public ByteSink {
  public:
    void write(std::span<const char> part) override { bytes.append(part.data(), part.size()); }
    std::string bytes;
};

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

std::vector<MarkTag> startTags(std::string_view xml) {
    return tagsOf(xml, kStart);
}

std::vector<MarkTag> endTags(std::string_view xml) {
    return tagsOf(xml, kEnd);
}

std::string endTag(const std::string& id) {
    return std::string(kEnd) + "w:id=\"" + id + "\"/>";
}

std::optional<std::string> withChanges(const std::string& xml,
                                       const std::map<std::size_t, XmlChange>& changes) {
    if (changes.empty()) return std::nullopt;
    std::string changed;
    std::size_t from = 0;
    for (const auto& [at, change] : changes) {
        changed.append(xml, from, at - from).append(change.added);
        from = at + change.removed;
    }
    return changed.append(xml, from);
}

std::optional<std::string> packageWithMendedParts(const std::string& bytes, const std::string& fileName,
                                                  const PartMender& mend) {
    opc::Package package = opc::Package::read(bytes, fileName);
    bool isMended = false;
    for (const std::string& part : package.partNames()) {
        if (!part.starts_with("/word/") || !part.ends_with(".xml")) continue;
        const std::optional<std::string> mended = mend(package.readPart(part));
        if (mended) package.writePart(part, *mended);
        isMended |= mended.has_value();
    }
    if (!isMended) return std::nullopt;
    BytesSink sink;
    package.write(sink);
    return sink.bytes;
}

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
