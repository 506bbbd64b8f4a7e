#pragma once

#include "office/opc/Package.h"

#include <string>
#include <vector>

/// Packages of workbooks, made of the XML that a test is about.
namespace mergeloom::embedded {

inline const std::string kWorkbookName = "/xl/workbook.xml";
inline const std::string kSheetTypes = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

inline std::string relationType(const std::string& shortName) {
    return opc::officeRelationshipType(shortName, opc::Conformance::Transitional);
}

inline std::string workbookXml(const std::string& children) {
    return "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
           "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">" +
           children + "</workbook>";
}

/// A list of sheets named "S1", "S2" and so on, each with the state given for it.
inline std::string sheetList(const std::vector<std::string>& states) {
    std::string list = "<sheets>";
    for (std::size_t i = 1; i <= states.size(); ++i) {
        const std::string number = std::to_string(i);
        list += "<sheet name=\"S" + number + "\" sheetId=\"" + number + "0\" state=\"" + states[i - 1] +
                "\" r:id=\"rId" + number + "\"/>";
    }
    return list + "</sheets>";
}

/// A package whose main part is the XML, with so many worksheets: "rId1" leads to
/// "/xl/worksheets/sheet1.xml".
inline opc::Package workbookPackage(const std::string& xml, int sheets,
                                    const std::string& contentType = kSheetTypes + "sheet.main+xml") {
    opc::Package package = opc::Package::empty();
    package.addPart(kWorkbookName, contentType, xml);
    package.relationshipsOf("/").addPart(relationType("officeDocument"), kWorkbookName);
    for (int i = 1; i <= sheets; ++i) {
        const std::string name = "/xl/worksheets/sheet" + std::to_string(i) + ".xml";
        package.addPart(name, kSheetTypes + "worksheet+xml", "<worksheet/>");
        package.relationshipsOf(kWorkbookName).addPart(relationType("worksheet"), name);
    }
    return package;
}

/// Returns a workbook with one sheet and the given children after its list of sheets.
inline opc::Package oneSheetPackage(const std::string& children = "") {
    return workbookPackage(workbookXml(sheetList({"visible"}) + children), 1);
}

}  // namespace mergeloom::embedded
