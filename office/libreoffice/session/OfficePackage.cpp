#include "office/libreoffice/session/OfficePackage.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/OfficeFilters.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/StringPair.hpp>
#include <com/sun/star/document/XEmbeddedScripts.hpp>
#include <com/sun/star/embed/ElementModes.hpp>
#include <com/sun/star/embed/StorageFactory.hpp>
#include <com/sun/star/embed/XRelationshipAccess.hpp>
#include <com/sun/star/script/XLibraryContainer.hpp>
#include <map>

namespace mergeloom::libreoffice {

namespace {

constexpr const char* kFormat = "OFOPXMLFormat";

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
Reference<css::uno::XInterface> openPackage(OfficeConnection& connection, const css::uno::Any& source) {
    css::beans::PropertyValue format;
    format.Name = "StorageFormat";
    format.Value <<= OUString::createFromAscii(kFormat);
    css::uno::Sequence<css::uno::Any> arguments(3);
    arguments.getArray()[0] = source;
    arguments.getArray()[1] <<= css::embed::ElementModes::READ;
    arguments.getArray()[2] <<= css::uno::Sequence<css::beans::PropertyValue>(&format, 1);
    return css::embed::StorageFactory::create(connection.context())->createInstanceWithArguments(arguments);
}
#pragma GCC diagnostic pop

bool libraryHoldsMacros(const Reference<css::script::XLibraryContainer>& libraries, const OUString& name) {
    if (!libraries->isLibraryLoaded(name)) libraries->loadLibrary(name);
    const Reference<css::container::XNameAccess> modules(libraries->getByName(name), UNO_QUERY_THROW);
    return modules->hasElements();
}

bool officeHoldsMacros(const DocumentReference& document) {
    const Reference<css::document::XEmbeddedScripts> scripts(document, UNO_QUERY);
    if (!scripts.is()) return false;
    const Reference<css::script::XLibraryContainer> libraries(scripts->getBasicLibraries(), UNO_QUERY);
    if (!libraries.is()) return false;
    const css::uno::Sequence<OUString> names = libraries->getElementNames();
    return std::any_of(names.begin(), names.end(),
                       [&](const OUString& name) { return libraryHoldsMacros(libraries, name); });
}

/// The relationships of a main part that only the kinds with macros may have ([MS-OFFMACRO2]).
bool packageHoldsMacros(OfficeConnection& connection, const css::uno::Any& file) try {
    if (!file.hasValue()) return false;
    const OfficePackage package(connection, file);
    if (!package.hasMainPart()) return false;
    return std::ranges::any_of(package.relationshipsOfMainPart(), [](const PackageRelationship& found) {
        return found.type == "vbaProject" || found.type == "xlMacrosheet";
    });
} catch (const css::uno::Exception&) {
    // The file is of another format, or it is gone meanwhile. That an office has ended shows with the next
    // call.
    return false;
}

}  // namespace

OfficePackage::OfficePackage(OfficeConnection& connection, const css::uno::Any& source)
    : package_(openPackage(connection, source), UNO_QUERY_THROW) {
    const std::vector<PackageRelationship> relationships = relationshipsOf(package_);
    const auto main = std::ranges::find(relationships, "officeDocument", &PackageRelationship::type);
    if (main == relationships.end()) return;
    // The target is relative to the package's root, with or without a slash.
    const std::string path = main->target.starts_with('/') ? main->target.substr(1) : main->target;
    mainPart_ = package_->openStreamElementByHierarchicalName(toUno(path), css::embed::ElementModes::READ);
}

std::vector<PackageRelationship> OfficePackage::relationshipsOfMainPart() const {
    return relationshipsOf(mainPart_);
}

Reference<css::io::XInputStream> OfficePackage::contentOfMainPart() const {
    return mainPart_->getInputStream();
}

void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const css::uno::Any& file, const std::string& path, SaveFormat format) {
    const FileFormat* const row = findFormat(format);
    const bool keepsMacros = row == nullptr || !row->engine || row->engine->macros == Macros::Kept;
    const auto hasMacros = [&] {
        return officeHoldsMacros(document) || packageHoldsMacros(connection, file);
    };
    if (keepsMacros || !connection.call(hasMacros)) return;
    throw AutomationError(kFileCouldNotBeSaved,
                          "The file '" + path + "' cannot be saved: " + macroRefusal(familyOf(format.kind)));
}

}  // namespace mergeloom::libreoffice
