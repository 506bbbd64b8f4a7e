#pragma once

#include "doubles/ExcelFiles.h"
#include "office/graft/PackageGraft.h"

#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace mergeloom::graft {

inline const std::string kStylesPart = "/xl/styles.xml";
inline const std::string kStringsPart = "/xl/sharedStrings.xml";

/// The parts of a test's workbook. Its only sheet is "Data".
struct TestBook {
    std::string cells{};         ///< the rows in sheetData
    std::string beforeCells{};   ///< children of the sheet
    std::string afterCells{};    ///< likewise
    std::string names{};         ///< the children of definedNames
    std::string formats{};       ///< the items of cellXfs after the first one
    std::string lists{};         ///< the lists before cellXfs
    std::string texts{};         ///< the shared texts
    std::string chain{};         ///< the children of the calculation chain; none without one
    std::string sheet = "Data";  ///< its name

    [[nodiscard]] std::string bytes() const {
        const std::string list = names.empty() ? "" : "<definedNames>" + names + "</definedNames>";
        const std::string xml = beforeCells + "<sheetData>" + cells + "</sheetData>" + afterCells;
        opc::Package package = workbookPackage({{sheet, xml}}, list);
        const std::string root = " xmlns=\"" + kSpreadsheet + "\">";
        add(package, "styles", kStylesPart,
            "<styleSheet" + root + lists + "<cellXfs><xf/>" + formats + "</cellXfs></styleSheet>");
        add(package, "sharedStrings", kStringsPart, "<sst" + root + texts + "</sst>");
        if (!chain.empty())
            add(package, "calcChain", "/xl/calcChain.xml", "<calcChain" + root + chain + "</calcChain>");
        return packageBytes(package);
    }

  private:
    static void add(opc::Package& package, const std::string& kind, const std::string& name,
                    const std::string& xml) {
        package.addPart(name, kSpreadsheetType + kind + "+xml", xml);
        package.relationshipsOf(kWorkbookPart).addPart(officeType(kind), name);
    }
};

/// The original, the export of the opened workbook and that of the edited one.
struct BookTriple {
    TestBook original;
    TestBook baseline;
    TestBook edited;
    int format = 51;

    [[nodiscard]] model::GraftResult graft() const {
        const std::string bytes[] = {original.bytes(), baseline.bytes(), edited.bytes()};
        return makePackageGraft()->graft(
            {DocumentKind::Excel, format, "book.xlsx", bytes[0], bytes[1], bytes[2]});
    }
    [[nodiscard]] std::string fault(const TestBook& proof) const {
        const std::string bytes[] = {original.bytes(), baseline.bytes(), edited.bytes()};
        const auto found = makePackageGraft()->findFault(
            {DocumentKind::Excel, format, "book.xlsx", bytes[0], bytes[1], bytes[2]}, {}, proof.bytes());
        return found ? found->reason : "";
    }
    /// Returns a part of the result, or the reason why there is none.
    [[nodiscard]] std::string part(const std::string& name) const {
        const model::GraftResult result = graft();
        if (std::holds_alternative<model::NothingChanged>(result)) return "nothing changed";
        if (const auto* const refusal = std::get_if<model::GraftRefusal>(&result))
            return "refused: " + refusal->reason;
        const opc::Package package =
            opc::Package::read(std::get<model::GraftedPackage>(result).bytes, "book.xlsx");
        return package.hasPart(name) ? package.readPart(name) : "no part";
    }
    /// Returns the children of an element in a part of the result, or the reason why there is none.
    [[nodiscard]] std::string content(const std::string& name, const std::string& element) const {
        const std::string xml = part(name);
        const std::size_t start = xml.find("<" + element);
        const std::size_t end = xml.find("</" + element + ">");
        if (start == std::string::npos || end == std::string::npos) return xml;
        const std::size_t content = xml.find('>', start) + 1;
        return xml.substr(content, end - content);
    }
    [[nodiscard]] std::string cells() const { return content(sheetPart(1), "sheetData"); }
};

inline std::string rowOf(const std::string& cells, const std::string& number = "1") {
    return "<row r=\"" + number + "\">" + cells + "</row>";
}

inline const std::string kTexts =
    "<si><t>Town</t></si><si><t>a &amp; b</t></si>"
    "<si><r><rPr><b val=\"true\"/></rPr><t>bold</t></r><r><t> rest</t></r></si>";

inline const std::string kShownFonts =
    "<fonts><font><sz val=\"11\"/><color rgb=\"FF000000\"/><name val=\"Calibri\"/></font>"
    "<font><b val=\"true\"/><sz val=\"11\"/><color rgb=\"FF000000\"/><name val=\"Calibri\"/></font>"
    "<font><sz val=\"11\"/><color rgb=\"FF000000\"/><name val=\"Arial\"/></font></fonts>"
    "<fills><fill><patternFill patternType=\"none\"/></fill>"
    "<fill><patternFill patternType=\"solid\"><fgColor rgb=\"FFFF0000\"/></patternFill></fill></fills>"
    "<borders><border><left/><top/></border><border><left/><top style=\"thin\"/></border></borders>";

}  // namespace mergeloom::graft
