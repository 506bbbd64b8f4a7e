#include "office/embedded/letters/RichTextXml.h"

#include "office/embedded/letters/ValueXml.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace mergeloom::embedded {

namespace {

/// The children of a run's properties up to the last one that rich text sets, in the order of the schema
/// (ECMA-376 Part 1, 17.3.2.28).
constexpr std::array<std::string_view, 27> kFontOrder = {
    "rStyle",  "rFonts",  "b",      "bCs",    "i",        "iCs",     "caps",       "smallCaps", "strike",
    "dstrike", "outline", "shadow", "emboss", "imprint",  "noProof", "snapToGrid", "vanish",    "webHidden",
    "color",   "spacing", "w",      "kern",   "position", "sz",      "szCs",       "highlight", "u"};

using Properties = std::vector<std::pair<std::string, std::string>>;

std::ptrdiff_t fontRank(std::string_view name) {
    return std::distance(kFontOrder.begin(), std::ranges::find(kFontOrder, name));
}

/// Sets a property at its position in the order of the schema.
void set(Properties& properties, const std::string& name, std::string xml) {
    const auto there = std::ranges::find(properties, name, &Properties::value_type::first);
    if (there != properties.end()) {
        there->second = std::move(xml);
        return;
    }
    const auto next = std::ranges::find_if(
        properties, [&](const auto& property) { return fontRank(property.first) > fontRank(name); });
    properties.insert(next, {name, std::move(xml)});
}

class RichTextWriter {
  public:
    RichTextWriter(std::string& xml, const PlaceFormat& format, const AddedParagraphs& added)
        : xml_(xml), format_(format), added_(added) {}

    std::size_t write(const std::vector<RichParagraph>& paragraphs) {
        // Preserves the formatting of the place for the next filling.
        appendRunContent(xml_, "", format_.prefix);
        for (const RichParagraph& paragraph : paragraphs) {
            const bool isLast = &paragraph == &paragraphs.back();
            if (&paragraph != &paragraphs.front()) startParagraph(isLast ? added_.section : "");
            appendMarker(paragraph);
            for (const RichRun& run : paragraph.runs)
                appendRun(run.text, run.font);
        }
        if (!isInRun_) startRun({});
        return sectionEnd_;
    }

  private:
    [[nodiscard]] std::string element(const std::string& name, const std::string& value = {}) const {
        const std::string attribute =
            value.empty() ? "" : " " + format_.attributePrefix + "val=\"" + value + '"';
        return "<" + format_.prefix + name + attribute + "/>";
    }

    void endRun() {
        if (isInRun_) xml_ += "</" + format_.prefix + "r>";
        isInRun_ = false;
    }

    void startRun(const RichFont& font) {
        isInRun_ = true;
        xml_ += "<" + format_.prefix + "r>";
        const Properties properties = propertiesWith(font);
        if (properties.empty()) return;
        xml_ += "<" + format_.prefix + "rPr>";
        for (const auto& [name, xml] : properties)
            xml_ += xml;
        xml_ += "</" + format_.prefix + "rPr>";
    }

    void appendRun(const std::string& text, const RichFont& font) {
        endRun();
        startRun(font);
        appendRunContent(xml_, text, format_.prefix);
    }

    void startParagraph(std::string_view section) {
        if (!format_.canSplit) {
            if (!isInRun_) startRun({});
            xml_ += element("br");
            return;
        }
        endRun();
        xml_ += "</" + format_.prefix + "p><" + format_.prefix + "p>";
        appendParagraphProperties(section);
    }

    void appendParagraphProperties(std::string_view section) {
        if (section.empty()) {
            xml_ += added_.properties;
            return;
        }
        const std::string end = "</" + format_.prefix + "pPr>";
        const std::string& properties = added_.properties;
        xml_ += properties.empty() ? "<" + format_.prefix + "pPr>"
                                   : properties.substr(0, properties.size() - end.size());
        xml_ += section;
        sectionEnd_ = xml_.size();
        xml_ += end;
    }

    void appendMarker(const RichParagraph& paragraph) {
        const std::string marker = listMarker(paragraph);
        if (!marker.empty()) appendRun(marker, {});
    }

    [[nodiscard]] Properties propertiesWith(const RichFont& font) const {
        Properties properties = format_.runProperties;
        if (!font.face.empty()) set(properties, "rFonts", fontXml(font.face));
        if (font.bold) set(properties, "b", element("b"));
        if (font.italic) set(properties, "i", element("i"));
        if (!font.color.empty()) set(properties, "color", element("color", font.color));
        if (font.halfPoints != 0) {
            set(properties, "sz", element("sz", std::to_string(font.halfPoints)));
            set(properties, "szCs", element("szCs", std::to_string(font.halfPoints)));
        }
        if (font.underline) set(properties, "u", element("u", "single"));
        return properties;
    }

    [[nodiscard]] std::string fontXml(const std::string& face) const {
        std::string xml = "<" + format_.prefix + "rFonts";
        for (const char* script : {"ascii", "hAnsi", "cs"}) {
            xml += " " + format_.attributePrefix + script + "=\"";
            appendEscaped(xml, face);
            xml += '"';
        }
        return xml + "/>";
    }

    std::string& xml_;
    const PlaceFormat& format_;
    const AddedParagraphs& added_;
    std::size_t sectionEnd_ = 0;
    bool isInRun_ = true;
};

}  // namespace

std::size_t appendRichText(std::string& xml, const std::vector<RichParagraph>& paragraphs,
                           const PlaceFormat& format, const AddedParagraphs& added) {
    return RichTextWriter(xml, format, added).write(paragraphs);
}

}  // namespace mergeloom::embedded
