#include "office/embedded/parts/InitialPart.h"

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

}  // namespace mergeloom::embedded
