#include "office/embedded/parts/NewDocument.h"

#include "office/embedded/parts/NewDocumentStyles.h"
#include "office/embedded/parts/SeedPart.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kWordType = "application/vnd.openxmlformats-officedocument.wordprocessingml.";

// A page of A4 with margins of one inch, measured in twentieths of a point. Line breaks stand inside tags
// only: between the elements they would be text.
constexpr std::string_view kDocument = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"
 xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"
><w:body><w:p/><w:sectPr><w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1440" w:right="1440"
 w:bottom="1440" w:left="1440" w:header="708" w:footer="708" w:gutter="0"/><w:cols w:space="708"
/><w:docGrid w:linePitch="360"/></w:sectPr></w:body></w:document>
)";

// Compatibility mode 15 is the layout of Word 2013 and later; without it Word opens the document as one of
// 2007.
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

SeedPart documentPart(std::string_view name, std::string_view contentType, std::string_view relation,
                      std::string_view xml) {
    return {std::string(name), std::string(contentType), "/word/document.xml", std::string(relation),
            std::string(xml)};
}

}  // namespace

std::vector<SeedPart> newDocumentParts() {
    std::vector<SeedPart> parts = {
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
