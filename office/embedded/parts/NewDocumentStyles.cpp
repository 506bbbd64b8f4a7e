#include "office/embedded/parts/NewDocumentStyles.h"

#include "office/embedded/parts/NewDocumentStyleTable.h"

#include <string_view>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kHead = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<w:styles xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main">
<w:docDefaults><w:rPrDefault><w:rPr>
<w:rFonts w:asciiTheme="minorHAnsi" w:eastAsiaTheme="minorHAnsi" w:hAnsiTheme="minorHAnsi"
 w:cstheme="minorBidi"/>
<w:sz w:val="22"/><w:szCs w:val="22"/><w:lang w:val="en-US" w:eastAsia="en-US" w:bidi="ar-SA"/>
</w:rPr></w:rPrDefault><w:pPrDefault><w:pPr>
<w:spacing w:after="160" w:line="259" w:lineRule="auto"/>
</w:pPr></w:pPrDefault></w:docDefaults>
)";

constexpr int kHeadingPriority = 9;
constexpr int kContentsPriority = 39;

/// Appends an element that has nothing but a value, unless the value is empty.
void appendValue(std::string& xml, std::string_view element, std::string_view value) {
    if (value.empty()) return;
    xml.append("<w:").append(element).append(" w:val=\"").append(value).append("\"/>");
}

void appendWrapped(std::string& xml, std::string_view element, std::string_view content) {
    if (content.empty()) return;
    xml.append("<w:").append(element).append(">").append(content);
    xml.append("</w:").append(element).append(">");
}

bool hidesUntilUsed(Shown shown) {
    return shown == Shown::OnUse || shown == Shown::QuickOnUse;
}
bool isQuick(Shown shown) {
    return shown == Shown::Quick || shown == Shown::QuickOnUse;
}

void appendStyle(std::string& xml, const Style& style, std::string_view link, bool isDefault) {
    xml.append("<w:style w:type=\"").append(style.type);
    if (isDefault) xml.append("\" w:default=\"1");
    xml.append("\" w:styleId=\"").append(style.id).append("\">");
    appendValue(xml, "name", style.name);
    appendValue(xml, "basedOn", style.basedOn);
    appendValue(xml, "next", style.next);
    appendValue(xml, "link", link);
    appendValue(xml, "uiPriority", std::to_string(style.priority));
    if (hidesUntilUsed(style.shown)) xml.append("<w:semiHidden/><w:unhideWhenUsed/>");
    if (isQuick(style.shown)) xml.append("<w:qFormat/>");
    appendWrapped(xml, "pPr", style.paragraph);
    appendWrapped(xml, "rPr", style.run);
    xml.append(style.table).append("</w:style>\n");
}

/// Appends a paragraph style together with the character style that applies its look to part of a paragraph.
void appendLinkedStyles(std::string& xml, const Style& style) {
    const std::string linkedId = std::string(style.id) + "Char";
    const std::string linkedName = std::string(style.name) + " Char";
    appendStyle(xml, style, linkedId, false);
    xml.append("<w:style w:type=\"character\" w:customStyle=\"1\" w:styleId=\"")
        .append(linkedId)
        .append("\">");
    appendValue(xml, "name", linkedName);
    appendValue(xml, "basedOn", "DefaultParagraphFont");
    appendValue(xml, "link", style.id);
    appendValue(xml, "uiPriority", std::to_string(style.priority));
    appendWrapped(xml, "rPr", style.run);
    xml.append("</w:style>\n");
}

std::string headingParagraph(const Heading& heading, int level) {
    return R"(<w:keepNext/><w:keepLines/><w:spacing w:before=")" + std::to_string(heading.spaceBefore) +
           R"(" w:after="80"/><w:outlineLvl w:val=")" + std::to_string(level - 1) + R"("/>)";
}

std::string headingRun(const Heading& heading) {
    const std::string size = std::to_string(heading.size);
    std::string run =
        R"(<w:rFonts w:asciiTheme="majorHAnsi" w:eastAsiaTheme="majorEastAsia" w:hAnsiTheme="majorHAnsi" )"
        R"(w:cstheme="majorBidi"/>)";
    if (heading.italic) run += "<w:i/><w:iCs/>";
    run.append("<w:color ").append(heading.color).append("/>");
    return run + R"(<w:sz w:val=")" + size + R"("/><w:szCs w:val=")" + size + R"("/>)";
}

void appendHeading(std::string& xml, const Heading& heading, int level) {
    const std::string id = "Heading" + std::to_string(level);
    const std::string name = "heading " + std::to_string(level);
    const std::string paragraph = headingParagraph(heading, level);
    const std::string run = headingRun(heading);
    const Shown shown = level == 1 ? Shown::Quick : Shown::QuickOnUse;
    appendLinkedStyles(
        xml, {"paragraph", id, name, "Normal", "Normal", kHeadingPriority, shown, paragraph, run, ""});
}

void appendLatentStyle(std::string& xml, const LatentStyle& style) {
    const auto flag = [](bool value) { return value ? "1" : "0"; };
    const char* const hidden = flag(hidesUntilUsed(style.shown));
    xml.append("<w:lsdException w:name=\"").append(style.name).append("\" w:semiHidden=\"").append(hidden);
    xml.append("\" w:uiPriority=\"").append(std::to_string(style.priority));
    xml.append("\" w:unhideWhenUsed=\"").append(hidden);
    xml.append("\" w:qFormat=\"").append(flag(isQuick(style.shown))).append("\"/>\n");
}

void appendLatentStyles(std::string& xml) {
    xml.append(R"(<w:latentStyles w:defLockedState="0" w:defUIPriority="99" w:defSemiHidden="1" )");
    xml.append("w:defUnhideWhenUsed=\"1\" w:defQFormat=\"0\" w:count=\"376\">\n");
    for (const LatentStyle& style : kLatentStyles) {
        appendLatentStyle(xml, style);
    }
    for (int level = 1; level <= 9; ++level) {
        const Shown shown = level == 1 ? Shown::Quick : Shown::QuickOnUse;
        appendLatentStyle(xml, {"heading " + std::to_string(level), kHeadingPriority, shown});
        appendLatentStyle(xml, {"toc " + std::to_string(level), kContentsPriority, Shown::OnUse});
    }
    xml.append("</w:latentStyles>\n");
}

}  // namespace

std::string newDocumentStyles() {
    std::string xml(kHead);
    appendLatentStyles(xml);
    for (const Style& style : kFirstStyles) {
        appendStyle(xml, style, "", true);
    }
    int level = 0;
    for (const Heading& heading : kHeadings) {
        appendHeading(xml, heading, ++level);
    }
    for (const Style& style : kLinkedStyles) {
        appendLinkedStyles(xml, style);
    }
    for (const Style& style : kOtherStyles) {
        appendStyle(xml, style, "", false);
    }
    xml.append("</w:styles>\n");
    return xml;
}

}  // namespace mergeloom::embedded
