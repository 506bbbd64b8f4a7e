#include "office/libreoffice/excel/CalcSheetKinds.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/StringPair.hpp>
#include <com/sun/star/embed/ElementModes.hpp>
#include <com/sun/star/embed/StorageFactory.hpp>
#include <com/sun/star/embed/XHierarchicalStorageAccess.hpp>
#include <com/sun/star/embed/XRelationshipAccess.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/xml/dom/DocumentBuilder.hpp>
#include <map>
#include <string>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

using css::xml::dom::XElement;
using css::xml::dom::XNodeList;

constexpr const char* kPackageFormat = "OFOPXMLFormat";
constexpr std::string_view kWorksheet = "worksheet";

/// The namespaces of the two kinds of conformance.
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

struct PackageRelationship {
    std::string id, shortType, target;
};

std::vector<PackageRelationship> relationshipsOf(const Reference<css::uno::XInterface>& source) {
    const Reference<css::embed::XRelationshipAccess> access(source, UNO_QUERY_THROW);
    std::vector<PackageRelationship> relationships;
    for (const css::uno::Sequence<css::beans::StringPair>& pairs : access->getAllRelationships()) {
        std::map<std::string, std::string> values;
        for (const css::beans::StringPair& pair : pairs)
            values[fromUno(pair.First)] = fromUno(pair.Second);
        const std::string type = values["Type"];
        relationships.push_back({values["Id"], type.substr(type.rfind('/') + 1), values["Target"]});
    }
    return relationships;
}

// The SDK calls the factory's interface deprecated, but there is no other one that takes the kind of storage.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
Reference<css::embed::XHierarchicalStorageAccess> packageAt(OfficeConnection& connection,
                                                            const OUString& url) {
    css::beans::PropertyValue format;
    format.Name = "StorageFormat";
    format.Value <<= OUString::createFromAscii(kPackageFormat);
    css::uno::Sequence<css::uno::Any> arguments(3);
    arguments.getArray()[0] <<= url;
    arguments.getArray()[1] <<= css::embed::ElementModes::READ;
    arguments.getArray()[2] <<= css::uno::Sequence<css::beans::PropertyValue>(&format, 1);
    const auto factory = css::embed::StorageFactory::create(connection.context());
    return {factory->createInstanceWithArguments(arguments), UNO_QUERY_THROW};
}
#pragma GCC diagnostic pop

/// The ids of the relationships that lead to the sheets, in their order.
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

/// The path of the part from the package's root on.
std::string mainPartOf(const Reference<css::uno::XInterface>& package) {
    const auto relationships = relationshipsOf(package);
    const auto main = std::ranges::find(relationships, "officeDocument", &PackageRelationship::shortType);
    if (main == relationships.end()) return {};
    return main->target.starts_with('/') ? main->target.substr(1) : main->target;
}

bool isOtherSheet(const PackageRelationship& relationship) {
    return relationship.shortType.ends_with("sheet") && relationship.shortType != kWorksheet;
}

std::vector<CalcSheetKind> readKinds(OfficeConnection& connection, const OUString& url) {
    const auto package = packageAt(connection, url);
    const std::string mainPart = mainPartOf(package);
    if (mainPart.empty()) return {};
    const auto workbook =
        package->openStreamElementByHierarchicalName(toUno(mainPart), css::embed::ElementModes::READ);
    const auto relationships = relationshipsOf(workbook);
    if (std::ranges::none_of(relationships, isOtherSheet)) return {};
    std::vector<CalcSheetKind> kinds;
    for (const std::string& id : sheetIdsIn(connection, workbook->getInputStream())) {
        const auto found = std::ranges::find(relationships, id, &PackageRelationship::id);
        const bool isOther = found != relationships.end() && isOtherSheet(*found);
        kinds.push_back(isOther ? CalcSheetKind::WithoutCells : CalcSheetKind::Worksheet);
    }
    return kinds;
}

}  // namespace

std::vector<CalcSheetKind> sheetKindsOf(OfficeConnection& connection, const DocumentReference& document) try {
    return connection.call([&]() -> std::vector<CalcSheetKind> {
        const OUString url = Reference<css::frame::XModel>(document, UNO_QUERY_THROW)->getURL();
        if (url.isEmpty()) return {};
        return readKinds(connection, url);
    });
} catch (const AutomationError& error) {
    // Not a package, which is how all other formats answer.
    if (error.number() == kNotAvailable) throw;
    return {};
}

}  // namespace mergeloom::libreoffice
