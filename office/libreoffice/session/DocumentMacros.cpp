#include "office/libreoffice/session/DocumentMacros.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/OfficePackage.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/document/XEmbeddedScripts.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/script/XLibraryContainer.hpp>

namespace mergeloom::libreoffice {

namespace {

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
bool packageHoldsMacros(OfficeConnection& connection, const DocumentReference& document) try {
    const OUString url = Reference<css::frame::XModel>(document, UNO_QUERY_THROW)->getURL();
    if (url.isEmpty()) return false;
    const OfficePackage package(connection, url);
    if (!package.hasMainPart()) return false;
    return std::ranges::any_of(package.relationshipsOfMainPart(), [](const PackageRelationship& found) {
        return found.type == "vbaProject" || found.type == "xlMacrosheet";
    });
} catch (const css::uno::Exception&) {
    // The file is of another format, or it is gone meanwhile. That an office has ended shows with the next
    // call.
    return false;
}

void refuseIfMacros(OfficeConnection& connection, const DocumentReference& document, const std::string& path,
                    const char* sentence) {
    if (!holdsMacros(connection, document)) return;
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + path + "' cannot be saved: " + sentence);
}

}  // namespace

bool holdsMacros(OfficeConnection& connection, const DocumentReference& document) {
    return connection.call(
        [&] { return officeHoldsMacros(document) || packageHoldsMacros(connection, document); });
}

void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const std::string& path, word::WdSaveFormat format) {
    using enum word::WdSaveFormat;
    if (format != wdFormatXMLDocument && format != wdFormatXMLTemplate) return;
    refuseIfMacros(connection, document, path,
                   "the document holds macros, which its format cannot keep. Choose docm or dotm.");
}

void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const std::string& path, excel::XlFileFormat format) {
    using enum excel::XlFileFormat;
    if (format != xlOpenXMLWorkbook && format != xlOpenXMLTemplate) return;
    refuseIfMacros(connection, document, path,
                   "the workbook holds macros, which its format cannot keep. Choose xlsm or xltm.");
}

}  // namespace mergeloom::libreoffice
