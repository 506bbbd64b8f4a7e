#include "office/libreoffice/session/LibreOfficeFiles.h"

#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "office/libreoffice/session/DecliningHandler.h"
#include "office/libreoffice/session/FileUrl.h"
#include "office/libreoffice/session/InputFilters.h"
#include "office/libreoffice/session/RequiredFilter.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <filesystem>
#include <rtl/ref.hxx>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

using Properties = std::vector<css::beans::PropertyValue>;

template <typename Value>
css::beans::PropertyValue property(const char* name, const Value& value) {
    css::beans::PropertyValue result;
    result.Name = OUString::createFromAscii(name);
    result.Value <<= value;
    return result;
}

css::uno::Sequence<css::beans::PropertyValue> sequenceOf(const Properties& properties) {
    return {properties.data(), static_cast<sal_Int32>(properties.size())};
}

/// What makes a document quiet, wherever it comes from.
Properties quiet() {
    return {property("Hidden", true),
            property("MacroExecutionMode", css::document::MacroExecMode::NEVER_EXECUTE),
            property("UpdateDocMode", css::document::UpdateDocMode::NO_UPDATE)};
}

void append(Properties& properties, const OfficeFilter& filter) {
    if (!filter.name.empty()) properties.push_back(property("FilterName", toUno(filter.name)));
    if (!filter.options.empty()) properties.push_back(property("FilterOptions", toUno(filter.options)));
}

/// So that relative links lead from where the file lies and not from where its copy does.
void appendBase(Properties& properties, const std::string& path) {
    const OUString url = toUno(fileUrl(fullPath(path)));
    properties.push_back(property("DocumentBaseURL", url));
}

/// The name that a file's copy bears: plain, so that no locale has a say in it.
std::string plainName(const std::string& path) {
    const std::string suffix = extension(path);
    const bool isPlain = std::ranges::all_of(
        suffix, [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) != 0; });
    return isPlain && !suffix.empty() ? "document." + suffix : "document";
}

std::string filterOf(const DocumentReference& document) {
    const Reference<css::frame::XModel> model(document, UNO_QUERY_THROW);
    for (const css::beans::PropertyValue& value : model->getArgs()) {
        OUString name;
        if (value.Name == "FilterName" && (value.Value >>= name)) return fromUno(name);
    }
    return {};
}

bool isOfPart(const DocumentReference& document, OfficePart part) {
    const Reference<css::lang::XServiceInfo> info(document, UNO_QUERY);
    const char* const service = part == OfficePart::Word ? "com.sun.star.text.TextDocument"
                                                         : "com.sun.star.sheet.SpreadsheetDocument";
    return info.is() && info->supportsService(OUString::createFromAscii(service));
}

[[noreturn]] void raiseNotReadable(const std::string& path, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeRead, "The file '" + path + "' could not be read: " + reason + ".");
}

/// A folder of a copy's own, gone with this object.
class Place {
  public:
    explicit Place(std::string folder) : folder_(std::move(folder)) {}
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place() {
        std::error_code error;
        std::filesystem::remove_all(folder_, error);
    }

  private:
    std::string folder_;
};

}  // namespace

DocumentReference LibreOfficeFiles::create(OfficePart part) {
    const char* const url = part == OfficePart::Word ? "private:factory/swriter" : "private:factory/scalc";
    return connection_.call([&] {
        return connection_.desktop()->loadComponentFromURL(OUString::createFromAscii(url), "_blank", 0,
                                                           sequenceOf(quiet()));
    });
}

DocumentReference LibreOfficeFiles::open(const std::string& path, OfficePart part) {
    const std::string bytes = files_.read(path);
    const std::string copy = makePlace(path);
    DiskFileStore().save(copy, [&](ByteSink& sink) { sink.write(bytes); });
    DocumentReference document = load(path, copy, part);
    try {
        connection_.call([&] { check(document, path, part); });
    } catch (const AutomationError&) {
        close(document);
        throw;
    }
    return document;
}

/// The path for a copy of the file, in a folder that holds nothing else.
std::string LibreOfficeFiles::makePlace(const std::string& path) {
    const std::string folder = joinPath(workFolder_, std::to_string(++places_));
    std::filesystem::create_directory(folder);
    return joinPath(folder, plainName(path));
}

DocumentReference LibreOfficeFiles::load(const std::string& path, const std::string& copy, OfficePart part) {
    const rtl::Reference<DecliningHandler> handler(new DecliningHandler);
    Properties properties = quiet();
    properties.push_back(property("AsTemplate", false));
    properties.push_back(
        property("InteractionHandler", Reference<css::task::XInteractionHandler>(handler.get())));
    append(properties, inputFilter(part, extension(path)));
    appendBase(properties, path);
    DocumentReference document;
    try {
        document = connection_.call([&] {
            return connection_.desktop()->loadComponentFromURL(toUno(fileUrl(copy)), "_blank", 0,
                                                               sequenceOf(properties));
        });
    } catch (const AutomationError& error) {
        if (error.number() == kNotAvailable) throw;
    }
    if (document.is()) return document;
    raiseNotReadable(path, handler->asked() == Question::Password
                               ? "it is protected by a password"
                               : "it is damaged, or of a format that LibreOffice does not know");
}

void LibreOfficeFiles::check(const DocumentReference& document, const std::string& path, OfficePart part) {
    if (!isOfPart(document, part))
        raiseNotReadable(path, part == OfficePart::Word ? "it holds no document" : "it holds no workbook");
    const std::string expected(inputFilter(part, extension(path)).name);
    if (readsAnything(filterOf(document)) && !readsAnything(expected))
        raiseNotReadable(path, "it is damaged, or of a format that LibreOffice does not know");
}

void LibreOfficeFiles::save(const DocumentReference& document, const std::string& path,
                            word::WdSaveFormat format) {
    write(document, path, requiredFilter(format, path));
}

void LibreOfficeFiles::save(const DocumentReference& document, const std::string& path,
                            excel::XlFileFormat format) {
    write(document, path, requiredFilter(format, path));
}

void LibreOfficeFiles::write(const DocumentReference& document, const std::string& path,
                             const OfficeFilter& filter) {
    const std::string copy = makePlace(path);
    const Place place(parentFolder(copy));
    Properties properties{property("Overwrite", true)};
    append(properties, filter);
    appendBase(properties, path);
    try {
        connection_.call([&] {
            const Reference<css::frame::XStorable> storable(document, UNO_QUERY_THROW);
            storable->storeToURL(toUno(fileUrl(copy)), sequenceOf(properties));
        });
    } catch (const AutomationError& error) {
        if (error.number() != kCommandFailed) throw;
        raiseNotSaved(path, error.description());
    }
    const std::string bytes = DiskFileStore().read(copy);
    files_.save(path, [&](ByteSink& sink) { sink.write(bytes); });
}

void LibreOfficeFiles::close(const DocumentReference& document) try {
    const std::string url = connection_.call([&] {
        const OUString place = Reference<css::frame::XModel>(document, UNO_QUERY_THROW)->getURL();
        Reference<css::util::XCloseable>(document, UNO_QUERY_THROW)->close(true);
        return fromUno(place);
    });
    removePlace(url);
} catch (const AutomationError&) {
    // It is closed already, or the office is.
}

void LibreOfficeFiles::removePlace(const std::string& url) {
    const std::string folders = fileUrl(workFolder_) + "/";
    if (!url.starts_with(folders)) return;
    const std::string number = url.substr(folders.size(), url.find('/', folders.size()) - folders.size());
    const Place place(joinPath(workFolder_, number));
}

}  // namespace mergeloom::libreoffice
