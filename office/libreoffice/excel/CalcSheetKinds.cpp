#include "office/libreoffice/excel/CalcSheetKinds.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/OfficePackage.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/xml/dom/DocumentBuilder.hpp>
#include <string>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

using css::xml::dom::XElement;
using css::xml::dom::XNodeList;

constexpr std::string_view kWorksheet = "worksheet";

/// The namespaces of the two conformance classes.
struct Namespaces {
    const char* sheets;
    const char* relationships;
};
constexpr Namespaces kNamespaces[] = {
    {"http://schemas.openxmlformats.org/spreadsheetml/2006/main",
     "http://schemas.openxmlformats.org/officeDocument/2006/relationships"},
    {"http://purl.oclc.org/ooxml/spreadsheetml/main",
     "http://purl.oclc.org/ooxml/officeDocument/relationships"},
};

/// Returns the ids of the relationships to the sheets, in the order of the sheets.
std::vector<std::string> sheetIdsIn(OfficeConnection& connection,
                                    const Reference<css::io::XInputStream>& workbook) {
    const auto document = css::xml::dom::DocumentBuilder::create(connection.context())->parse(workbook);
    std::vector<std::string> ids;
    for (const Namespaces& names : kNamespaces) {
        const Reference<XNodeList> sheets =
            document->getElementsByTagNameNS(OUString::createFromAscii(names.sheets), "sheet");
        for (sal_Int32 index = 0, count = sheets->getLength(); index < count; ++index) {
            const Reference<XElement> sheet(sheets->item(index), UNO_QUERY_THROW);
            ids.push_back(
                fromUno(sheet->getAttributeNS(OUString::createFromAscii(names.relationships), "id")));
        }
    }
    return ids;
}

bool isOtherSheet(const PackageRelationship& relationship) {
    return relationship.type.ends_with("sheet") && relationship.type != kWorksheet;
}

std::vector<CalcSheetKind> readKinds(OfficeConnection& connection, const css::uno::Any& file) {
    const OfficePackage package(connection, file);
    if (!package.hasMainPart()) return {};
    const auto relationships = package.relationshipsOfMainPart();
    if (std::ranges::none_of(relationships, isOtherSheet)) return {};
    std::vector<CalcSheetKind> kinds;
    for (const std::string& id : sheetIdsIn(connection, package.contentOfMainPart())) {
        const auto found = std::ranges::find(relationships, id, &PackageRelationship::id);
        const bool isOther = found != relationships.end() && isOtherSheet(*found);
        kinds.push_back(isOther ? CalcSheetKind::WithoutCells : CalcSheetKind::Worksheet);
    }
    return kinds;
}

}  // namespace

std::vector<CalcSheetKind> sheetKindsOf(LibreOfficeSession& session, const DocumentReference& document) try {
    const css::uno::Any file = session.files().packageOf(document);
    if (!file.hasValue()) return {};
    OfficeConnection& connection = session.connection();
    return connection.call([&] { return readKinds(connection, file); });
} catch (const AutomationError& error) {
    // Files of all other formats are not packages.
    if (error.number() == kNotAvailable) throw;
    return {};
}

}  // namespace mergeloom::libreoffice
