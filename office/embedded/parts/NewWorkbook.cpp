#include "office/embedded/parts/NewDocument.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kSheetType = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

constexpr std::string_view kWorkbook = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"
 xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">
<workbookPr defaultThemeVersion="124226"/>
<bookViews><workbookView xWindow="0" yWindow="0" windowWidth="24000" windowHeight="12000"/></bookViews>
<sheets><sheet name="Sheet1" sheetId="1" r:id="rId1"/></sheets>
</workbook>
)";

// The margins are Excel's "Normal" ones, in inches.
constexpr std::string_view kSheet = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"
 xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">
<dimension ref="A1"/>
<sheetViews><sheetView tabSelected="1" workbookViewId="0"/></sheetViews>
<sheetFormatPr defaultRowHeight="15"/>
<sheetData/>
<pageMargins left="0.7" right="0.7" top="0.75" bottom="0.75" header="0.3" footer="0.3"/>
</worksheet>
)";

// Excel always uses the first two fills for itself: none and a dotted grey.
constexpr std::string_view kStyles = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">
<fonts count="1"><font><sz val="11"/><color theme="1"/><name val="Calibri"/><family val="2"/>
<scheme val="minor"/></font></fonts>
<fills count="2"><fill><patternFill patternType="none"/></fill>
<fill><patternFill patternType="gray125"/></fill></fills>
<borders count="1"><border><left/><right/><top/><bottom/><diagonal/></border></borders>
<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>
<cellXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/></cellXfs>
<cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>
<dxfs count="0"/>
<tableStyles count="0" defaultTableStyle="TableStyleMedium2" defaultPivotStyle="PivotStyleLight16"/>
</styleSheet>
)";

InitialPart workbookPart(std::string_view name, std::string contentType, std::string_view relation,
                         std::string_view xml) {
    return {std::string(name), std::move(contentType), "/xl/workbook.xml", join(kOfficeRelation, relation),
            std::string(xml)};
}

}  // namespace

std::vector<InitialPart> newWorkbookParts() {
    std::vector<InitialPart> parts = {
        {"/xl/workbook.xml", join(kSheetType, "sheet.main+xml"), "/", join(kOfficeRelation, "officeDocument"),
         std::string(kWorkbook)},
        workbookPart("/xl/worksheets/sheet1.xml", join(kSheetType, "worksheet+xml"), "worksheet", kSheet),
        workbookPart("/xl/styles.xml", join(kSheetType, "styles+xml"), "styles", kStyles),
        workbookPart("/xl/theme/theme1.xml", join(kOfficeType, "theme+xml"), "theme", newDocumentTheme()),
    };
    std::ranges::copy(newPropertyParts(), std::back_inserter(parts));
    return parts;
}

}  // namespace mergeloom::embedded
