#include "office/libreoffice/session/MarkTags.h"

#include "base/FileStore.h"
#include "office/opc/Package.h"

#include <span>

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

}  // namespace mergeloom::libreoffice
