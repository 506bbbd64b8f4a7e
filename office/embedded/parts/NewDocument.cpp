#include "office/embedded/parts/NewDocument.h"

#include "office/embedded/parts/NewDocumentStyleTable.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

namespace {

constexpr const char* kCoreProperties = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<cp:coreProperties xmlns:cp="http://schemas.openxmlformats.org/package/2006/metadata/core-properties"
 xmlns:dc="http://purl.org/dc/elements/1.1/">
<dc:title></dc:title><dc:creator></dc:creator><cp:revision>1</cp:revision>
</cp:coreProperties>
)";

constexpr const char* kExtendedProperties = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Properties xmlns="http://schemas.openxmlformats.org/officeDocument/2006/extended-properties">
<Application>Mergeloom</Application>
</Properties>
)";

// A format scheme must contain three fills, lines, effects and backgrounds: subtle, moderate and intense.
constexpr std::string_view kTheme = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<a:theme xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" name="Mergeloom"><a:themeElements>
<a:clrScheme name="Mergeloom">
<a:dk1><a:sysClr val="windowText" lastClr="000000"/></a:dk1>
<a:lt1><a:sysClr val="window" lastClr="FFFFFF"/></a:lt1>
<a:dk2><a:srgbClr val="3A4654"/></a:dk2><a:lt2><a:srgbClr val="E9EBEE"/></a:lt2>
<a:accent1><a:srgbClr val="3F6FB5"/></a:accent1><a:accent2><a:srgbClr val="D9772B"/></a:accent2>
<a:accent3><a:srgbClr val="8C9299"/></a:accent3><a:accent4><a:srgbClr val="E3B01C"/></a:accent4>
<a:accent5><a:srgbClr val="4E9AC9"/></a:accent5><a:accent6><a:srgbClr val="669F4A"/></a:accent6>
<a:hlink><a:srgbClr val="0A5FC0"/></a:hlink><a:folHlink><a:srgbClr val="8A4F77"/></a:folHlink>
</a:clrScheme><a:fontScheme name="Mergeloom">
<a:majorFont><a:latin typeface="Calibri Light"/><a:ea typeface=""/><a:cs typeface=""/></a:majorFont>
<a:minorFont><a:latin typeface="Calibri"/><a:ea typeface=""/><a:cs typeface=""/></a:minorFont>
</a:fontScheme><a:fmtScheme name="Mergeloom"><a:fillStyleLst>
<a:solidFill><a:schemeClr val="phClr"/></a:solidFill>
<a:solidFill><a:schemeClr val="phClr"><a:tint val="80000"/></a:schemeClr></a:solidFill>
<a:solidFill><a:schemeClr val="phClr"><a:shade val="90000"/></a:schemeClr></a:solidFill>
</a:fillStyleLst><a:lnStyleLst>
<a:ln w="6350"><a:solidFill><a:schemeClr val="phClr"/></a:solidFill><a:prstDash val="solid"/></a:ln>
<a:ln w="12700"><a:solidFill><a:schemeClr val="phClr"/></a:solidFill><a:prstDash val="solid"/></a:ln>
<a:ln w="19050"><a:solidFill><a:schemeClr val="phClr"/></a:solidFill><a:prstDash val="solid"/></a:ln>
</a:lnStyleLst><a:effectStyleLst><a:effectStyle><a:effectLst/></a:effectStyle>
<a:effectStyle><a:effectLst/></a:effectStyle>
<a:effectStyle><a:effectLst/></a:effectStyle></a:effectStyleLst>
<a:bgFillStyleLst><a:solidFill><a:schemeClr val="phClr"/></a:solidFill>
<a:solidFill><a:schemeClr val="phClr"><a:tint val="95000"/></a:schemeClr></a:solidFill>
<a:solidFill><a:schemeClr val="phClr"><a:shade val="95000"/></a:schemeClr></a:solidFill>
</a:bgFillStyleLst></a:fmtScheme></a:themeElements><a:objectDefaults/><a:extraClrSchemeLst/></a:theme>
)";

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

/// Appends an element with only a value, unless the value is empty.
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

/// Returns the styles part of a new document (ECMA-376 Part 1, 17.7): 11 pt Calibri, the usual built-in
/// styles, and Word's other built-in styles latent, hidden until they are used.
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

constexpr std::string_view kWordType = "application/vnd.openxmlformats-officedocument.wordprocessingml.";

// A page of A4 with margins of one inch, measured in twentieths of a point. Line breaks are only inside of
// tags: between the elements they would be text.
constexpr std::string_view kDocument = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"
 xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"
><w:body><w:p/><w:sectPr><w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1440" w:right="1440"
 w:bottom="1440" w:left="1440" w:header="708" w:footer="708" w:gutter="0"/><w:cols w:space="708"
/><w:docGrid w:linePitch="360"/></w:sectPr></w:body></w:document>
)";

// Compatibility mode 15 is the layout of Word 2013 and later; without it Word opens the document in the
// layout of 2007.
constexpr std::string_view kSettings = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<w:settings xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main">
<w:zoom w:percent="100"/><w:defaultTabStop w:val="708"/>
<w:characterSpacingControl w:val="doNotCompress"/>
<w:compat>
<w:compatSetting w:name="compatibilityMode"
 w:uri="http://schemas.microsoft.com/office/word" w:val="15"/>
<w:compatSetting w:name="overrideTableStyleFontSizeAndJustification"
 w:uri="http://schemas.microsoft.com/office/word" w:val="1"/>
<w:compatSetting w:name="enableOpenTypeFeatures"
 w:uri="http://schemas.microsoft.com/office/word" w:val="1"/>
<w:compatSetting w:name="doNotFlipMirrorIndents"
 w:uri="http://schemas.microsoft.com/office/word" w:val="1"/>
<w:compatSetting w:name="differentiateMultirowTableHeaders"
 w:uri="http://schemas.microsoft.com/office/word" w:val="1"/>
</w:compat>
<w:themeFontLang w:val="en-US"/>
<w:clrSchemeMapping w:bg1="light1" w:t1="dark1" w:bg2="light2" w:t2="dark2" w:accent1="accent1"
 w:accent2="accent2" w:accent3="accent3" w:accent4="accent4" w:accent5="accent5" w:accent6="accent6"
 w:hyperlink="hyperlink" w:followedHyperlink="followedHyperlink"/>
<w:decimalSymbol w:val="."/><w:listSeparator w:val=","/>
</w:settings>
)";

// The other names are metric twins of the fonts, for systems that lack them.
constexpr std::string_view kFontTable = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<w:fonts xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main">
<w:font w:name="Calibri"><w:altName w:val="Carlito"/><w:panose1 w:val="020F0502020204030204"/>
<w:charset w:val="00"/><w:family w:val="swiss"/><w:pitch w:val="variable"/></w:font>
<w:font w:name="Calibri Light"><w:altName w:val="Carlito"/><w:panose1 w:val="020F0302020204030204"/>
<w:charset w:val="00"/><w:family w:val="swiss"/><w:pitch w:val="variable"/></w:font>
<w:font w:name="Times New Roman"><w:altName w:val="Liberation Serif"/><w:panose1 w:val="02020603050405020304"/>
<w:charset w:val="00"/><w:family w:val="roman"/><w:pitch w:val="variable"/></w:font>
</w:fonts>
)";

InitialPart documentPart(std::string_view name, std::string_view contentType, std::string_view relation,
                         std::string_view xml) {
    return {std::string(name), std::string(contentType), "/word/document.xml", std::string(relation),
            std::string(xml)};
}

}  // namespace

opc::Package initialPackage(const std::vector<InitialPart>& parts) {
    opc::Package package = opc::Package::empty();
    for (const InitialPart& part : parts) {
        package.addPart(part.name, part.contentType, part.xml);
        package.relationshipsOf(part.source).addPart(part.relationshipType, part.name);
    }
    return package;
}

std::vector<InitialPart> newPropertyParts() {
    return {
        {"/docProps/core.xml", "application/vnd.openxmlformats-package.core-properties+xml", "/",
         "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties",
         kCoreProperties},
        {"/docProps/app.xml", "application/vnd.openxmlformats-officedocument.extended-properties+xml", "/",
         "http://schemas.openxmlformats.org/officeDocument/2006/relationships/extended-properties",
         kExtendedProperties},
    };
}

std::string_view newDocumentTheme() {
    return kTheme;
}

std::vector<InitialPart> newDocumentParts() {
    std::vector<InitialPart> parts = {
        {"/word/document.xml", join(kWordType, "document.main+xml"), "/",
         join(kOfficeRelation, "officeDocument"), std::string(kDocument)},
        documentPart("/word/styles.xml", join(kWordType, "styles+xml"), join(kOfficeRelation, "styles"),
                     newDocumentStyles()),
        documentPart("/word/settings.xml", join(kWordType, "settings+xml"), join(kOfficeRelation, "settings"),
                     kSettings),
        documentPart("/word/fontTable.xml", join(kWordType, "fontTable+xml"),
                     join(kOfficeRelation, "fontTable"), kFontTable),
        documentPart("/word/theme/theme1.xml", join(kOfficeType, "theme+xml"), join(kOfficeRelation, "theme"),
                     newDocumentTheme()),
    };
    std::ranges::copy(newPropertyParts(), std::back_inserter(parts));
    return parts;
}

}  // namespace mergeloom::embedded
