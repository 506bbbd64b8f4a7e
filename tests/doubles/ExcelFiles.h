#pragma once

#include "doubles/PackageBytes.h"
#include "office/opc/Package.h"
#include "office/opc/Relationships.h"

#include <string>
#include <vector>

/// Excel files in memory, made of plain texts.
namespace mergeloom {

inline const std::string kWorkbookPart = "/xl/workbook.xml";
inline const std::string kSpreadsheet = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
inline const std::string kSpreadsheetType = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

/// A sheet of a test's workbook: part N of the folder "worksheets" for the N-th one.
struct TestSheet {
    std::string name;
    std::string xml{};         ///< the children of the root; empty: an empty sheetData
    std::string attributes{};  ///< further attributes in the workbook's list, such as a state
    std::string kind = "worksheet";
};

inline std::string officeType(const std::string& shortName) {
    return opc::officeRelationshipType(shortName, opc::Conformance::Transitional);
}

inline std::string sheetPart(std::size_t number) {
    return "/xl/worksheets/sheet" + std::to_string(number) + ".xml";
}

/// Returns a package with a workbook. The test's XML follows the list of sheets in the workbook part.
inline opc::Package workbookPackage(const std::vector<TestSheet>& sheets,
                                    const std::string& behindSheets = "",
                                    const std::string& beforeSheets = "") {
    opc::Package package = opc::Package::empty();
    std::string list;
    for (std::size_t number = 1; number <= sheets.size(); ++number) {
        const TestSheet& sheet = sheets[number - 1];
        const std::string root = sheet.kind;
        package.addPart(sheetPart(number), kSpreadsheetType + root + "+xml",
                        "<" + root + " xmlns=\"" + kSpreadsheet + "\">" +
                            (sheet.xml.empty() ? "<sheetData/>" : sheet.xml) + "</" + root + ">");
        const std::string id =
            package.relationshipsOf(kWorkbookPart).addPart(officeType(root), sheetPart(number));
        list += "<sheet name=\"" + sheet.name + "\" sheetId=\"" + std::to_string(number) + "\" r:id=\"" + id +
                "\" " + sheet.attributes + "/>";
    }
    package.addPart(
        kWorkbookPart, kSpreadsheetType + "sheet.main+xml",
        "<workbook xmlns=\"" + kSpreadsheet +
            "\" xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">" +
            beforeSheets + "<sheets>" + list + "</sheets>" + behindSheets + "</workbook>");
    package.relationshipsOf("/").addPart(officeType("officeDocument"), kWorkbookPart);
    return package;
}

inline std::string workbookFile(const std::vector<TestSheet>& sheets, const std::string& behindSheets = "",
                                const std::string& beforeSheets = "") {
    opc::Package package = workbookPackage(sheets, behindSheets, beforeSheets);
    return packageBytes(package);
}

}  // namespace mergeloom
