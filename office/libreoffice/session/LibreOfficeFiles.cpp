#include "office/libreoffice/session/LibreOfficeFiles.h"

#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "office/formats/mExcelFileExtensions.h"
#include "office/formats/mWordFileExtensions.h"
#include "office/libreoffice/session/FileOptions.h"
#include "office/libreoffice/session/FilePassword.h"
#include "office/libreoffice/session/MarkTags.h"
#include "office/libreoffice/session/ModifiedFlag.h"
#include "office/libreoffice/session/NewFrame.h"
#include "office/libreoffice/session/OfficeFilters.h"
#include "office/libreoffice/session/OfficePackage.h"
#include "office/libreoffice/session/PendingFormulas.h"
#include "office/libreoffice/session/RefusingInteractionHandler.h"
#include "office/libreoffice/session/ScratchPaths.h"
#include "office/libreoffice/session/UnoProperty.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/PasswordRequired.h"

#include <unistd.h>

#include <com/sun/star/document/XDocumentRecovery.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/ucb/SimpleFileAccess.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <optional>
#include <osl/file.hxx>
#include <rtl/ref.hxx>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

/// The view that has neither bars nor a line that offers to edit the document.
constexpr sal_Int16 kPlainView = 2;

/// Returns a package as the office can read it.
std::string mended(const std::string& bytes, const std::string& path, DocumentKind kind) {
    if (kind != DocumentKind::Word) return bytes;
    return packageWithEndsInCells(bytes, path).value_or(bytes);
}

std::string filterOf(const DocumentReference& document) {
    const Reference<css::frame::XModel> model(document, UNO_QUERY_THROW);
    for (const css::beans::PropertyValue& value : model->getArgs()) {
        OUString name;
        if (value.Name == "FilterName" && (value.Value >>= name)) return fromUno(name);
    }
    return {};
}

bool isOfKind(const DocumentReference& document, DocumentKind kind) {
    const Reference<css::lang::XServiceInfo> info(document, UNO_QUERY);
    const char* const service = kind == DocumentKind::Word ? "com.sun.star.text.TextDocument"
                                                           : "com.sun.star.sheet.SpreadsheetDocument";
    return info.is() && info->supportsService(OUString::createFromAscii(service));
}

[[noreturn]] void raiseNotReadable(const std::string& path, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeRead, "The file '" + path + "' could not be read: " + reason + ".");
}

/// Returns the filter of the office's own format.
OfficeFilter ownFilter(const DocumentReference& document, const std::string& path) {
    const bool isText = isOfKind(document, DocumentKind::Word);
    const int text = wordFormatByExtension("odt");
    const int cells = excelFormatByExtension("ods");
    return requiredFilter(isText ? SaveFormat(static_cast<word::WdSaveFormat>(text))
                                 : SaveFormat(static_cast<excel::XlFileFormat>(cells)),
                          path);
}

/// Returns true if the file on the disk has these bytes and may be opened for editing.
bool isOnDisk(const std::string& path, const std::string& bytes) try {
    return ::access(path.c_str(), W_OK) == 0 && DiskFileStore().read(path) == bytes;
} catch (const AutomationError&) {
    return false;
}

void saveOnDisk(const std::string& path, const std::string& bytes) {
    DiskFileStore().save(path, [&](ByteSink& sink) { sink.write(bytes); });
}

std::string urlOf(const DocumentReference& document) {
    return fromUno(Reference<css::frame::XModel>(document, UNO_QUERY_THROW)->getURL());
}

}  // namespace

DocumentReference LibreOfficeFiles::create(DocumentKind kind) {
    const char* const url = kind == DocumentKind::Word ? "private:factory/swriter" : "private:factory/scalc";
    return connection_.call([&] { return loadFrom(url, quiet(), frames_); });
}

/// Returns none when the office refuses.
DocumentReference LibreOfficeFiles::loadFrom(const std::string& url, Properties properties,
                                             const FrameSource& frames) {
    if (!frames) {
        properties.push_back(property("Hidden", true));
        return connection_.desktop()->loadComponentFromURL(toUno(url), "_blank", 0, sequenceOf(properties));
    }
    const NewFrame frame(frames());
    const Reference<css::frame::XComponentLoader> loader(frame.get(), UNO_QUERY_THROW);
    return loader->loadComponentFromURL(toUno(url), "_self", 0, sequenceOf(properties));
}

/// Decrypts an encrypted package before the office reads it, so that its content can be mended.
DocumentReference LibreOfficeFiles::open(const std::string& path, DocumentKind kind) {
    const std::string bytes = files_.read(path);
    const auto unlocked = unlockedPackage(connection_, path, bytes, password_);
    const std::string file = fullPath(path);
    const std::string source = isOpenedInPlace(file, bytes) ? file : copyOf(path, bytes);
    const bool isReadOnly = frames_ && access_ == FileAccess::ReadOnly;
    const Properties more = isReadOnly ? readOnly() : Properties();
    if (!unlocked) {
        const DocumentReference document = load(path, source, bytes, kind, frames_, with(password_, more));
        passwords_.note(document, password_);
        return document;
    }
    const DocumentReference document =
        loadFrom(path, source, mended(unlocked->bytes, path, kind), kind, frames_, more);
    passwords_.note(document, unlocked->password);
    return document;
}

bool LibreOfficeFiles::isOpenedInPlace(const std::string& source, const std::string& bytes) const {
    return access_ != FileAccess::Copy && isOnDisk(source, bytes);
}

DocumentReference LibreOfficeFiles::openCopy(const std::string& path, const std::string& bytes,
                                             DocumentKind kind, const std::string& password) {
    return load(path, copyOf(path, bytes), bytes, kind, {}, with(password, {}));
}

DocumentReference LibreOfficeFiles::showCopy(const std::string& name, const std::string& bytes,
                                             DocumentKind kind, const FrameSource& frames) {
    Properties plain = readOnly();
    plain.push_back(property("PluginMode", kPlainView));
    return load(name, copyOf(name, bytes), bytes, kind, frames, plain);
}

std::string LibreOfficeFiles::copyOf(const std::string& path, const std::string& bytes) {
    std::string copy = scratch_.forCopy(path);
    saveOnDisk(copy, bytes);
    return copy;
}

/// Returns the stream from which the office reads the content in place of the file.
Reference<css::io::XInputStream> LibreOfficeFiles::streamOf(const std::string& path,
                                                            const std::string& content) {
    const std::string copy = copyOf(path, content);
    // The office has it open by then, so its name can be removed.
    const ScopedTempFile temporary(scratch_, copy);
    return connection_.call([&] {
        return css::ucb::SimpleFileAccess::create(connection_.context())->openFileRead(toUno(fileUrl(copy)));
    });
}

/// The document keeps the source's URL for links and for its title, even when it is read from its mended
/// bytes.
DocumentReference LibreOfficeFiles::load(const std::string& path, const std::string& source,
                                         const std::string& bytes, DocumentKind kind,
                                         const FrameSource& frames, const Properties& more) {
    std::optional<std::string> mended;
    if (kind == DocumentKind::Word) mended = packageWithEndsInCells(bytes, path);
    return loadFrom(path, source, mended, kind, frames, more);
}

/// Reads the content, or else the source itself.
DocumentReference LibreOfficeFiles::loadFrom(const std::string& path, const std::string& source,
                                             const std::optional<std::string>& content, DocumentKind kind,
                                             const FrameSource& frames, const Properties& more) {
    const rtl::Reference<RefusingInteractionHandler> handler(new RefusingInteractionHandler);
    Properties properties = quiet();
    properties.push_back(property("AsTemplate", false));
    properties.push_back(
        property("InteractionHandler", Reference<css::task::XInteractionHandler>(handler.get())));
    properties.insert(properties.end(), more.begin(), more.end());
    append(properties, inputFilter(kind, extension(path)));
    if (content) properties.push_back(property("InputStream", streamOf(path, *content)));
    DocumentReference document;
    try {
        document = connection_.call([&] { return loadFrom(fileUrl(source), properties, frames); });
    } catch (const AutomationError& error) {
        if (error.number() == kNotAvailable) throw;
    }
    // Some filters do not ask again after a wrong password. None is given before a file needs one.
    if (!document.is() && (handler->wantsPassword() || havePassword(more)))
        throw model::PasswordRequired(path);
    if (!document.is())
        raiseNotReadable(path, "it is damaged, or of a format that LibreOffice does not know");
    try {
        connection_.call([&] { check(document, path, kind); });
    } catch (const AutomationError&) {
        close(document);
        throw;
    }
    return document;
}

void LibreOfficeFiles::check(const DocumentReference& document, const std::string& path, DocumentKind kind) {
    if (!isOfKind(document, kind))
        raiseNotReadable(path, kind == DocumentKind::Word ? "it holds no document" : "it holds no workbook");
    const std::string expected(inputFilter(kind, extension(path)).name);
    if (readsAnything(filterOf(document)) && !readsAnything(expected))
        raiseNotReadable(path, "it is damaged, or of a format that LibreOffice does not know");
}

void LibreOfficeFiles::save(const DocumentReference& document, const std::string& path, SaveFormat format,
                            const Revision& revise) {
    const OfficeFilter filter = requiredFilter(format, path);
    refuseToLoseMacros(connection_, document, packageOf(document), path, format);
    write(document, path, filter, format, revise);
    if (losesPassword(document, format)) passwords_.forget(document);
}

bool LibreOfficeFiles::losesPassword(const DocumentReference& document, SaveFormat format) {
    return !passwords_.of(document).empty() && !FilePassword::covers(connection_, format);
}

std::string LibreOfficeFiles::plainBytes(const DocumentReference& document, const std::string& path) {
    std::string bytes = files_.read(path);
    auto unlocked = unlockedPackage(connection_, path, bytes, passwords_.of(document));
    return unlocked ? std::move(unlocked->bytes) : std::move(bytes);
}

css::uno::Any LibreOfficeFiles::packageOf(const DocumentReference& document) try {
    const std::string url = connection_.call([&] { return urlOf(document); });
    if (url.empty()) return {};
    if (passwords_.of(document).empty()) return css::uno::Any(toUno(url));
    const std::string source = sourceOf(document);
    const std::string bytes = DiskFileStore().read(source);
    const auto unlocked = unlockedPackage(connection_, source, bytes, passwords_.of(document));
    if (!unlocked) return css::uno::Any(toUno(url));
    return css::uno::Any(streamOf(source, unlocked->bytes));
} catch (const AutomationError& error) {
    // The file is gone, or another one has taken its place.
    if (error.number() == kNotAvailable) throw;
    return {};
}

void LibreOfficeFiles::exportCopy(const DocumentReference& document, const std::string& path,
                                  SaveFormat format) {
    const std::string bytes = exported(document, path, format, {});
    files_.save(path, [&](ByteSink& sink) { sink.write(bytes); });
}

void LibreOfficeFiles::exportPages(const DocumentReference& document, const std::string& path,
                                   SaveFormat format, const PageRange& pages) {
    if (pdfOptions_.empty())
        pdfOptions_ = connection_.call([&] { return pdfOptions(connection_.context()); });
    Properties data = pdfOptions_;
    data.push_back(property("PageRange", toUno(pages.text())));
    data.push_back(property("IsSkipEmptyPages", true));
    const std::string bytes = exported(document, path, format, {property("FilterData", sequenceOf(data))});
    files_.saveInBatch(path, [&](ByteSink& sink) { sink.write(bytes); });
}

std::string LibreOfficeFiles::exported(const DocumentReference& document, const std::string& path,
                                       SaveFormat format, const Properties& properties) {
    const OfficeFilter filter = requiredFilter(format, path);
    const std::string copy = pathToWrite(document, path);
    const ScopedTempFile temporary(scratch_, copy);
    const PartialFileCleanup cleanup(connection_.process(), copy);
    Properties all = properties;
    FilePassword(connection_, format, passwords_.of(document)).addTo(all);
    store(document, path, copy, filter, all);
    return DiskFileStore().read(copy);
}

std::string LibreOfficeFiles::exportedBytes(const DocumentReference& document, const std::string& path,
                                            SaveFormat format) {
    const OfficeFilter filter = requiredFilter(format, path);
    const std::string copy = scratch_.forCopy(path);
    const ScopedTempFile temporary(scratch_, copy);
    const FilePassword password(connection_, format, passwords_.of(document));
    Properties properties;
    password.addTo(properties);
    store(document, path, copy, filter, properties);
    return password.opened(DiskFileStore().read(copy));
}

/// The office regards a change as kept even if the copy could not be written to its place.
bool LibreOfficeFiles::hasChangesToKeep(const DocumentReference& document) const {
    const Reference<css::document::XDocumentRecovery> recovery(document, UNO_QUERY);
    if (!recovery.is()) return false;
    if (recovery->wasModifiedSinceLastSave()) return true;
    const Reference<css::util::XModifiable> modifiable(document, UNO_QUERY_THROW);
    return modifiable->isModified() && !hasKeptLastCopy_;
}

/// Stores a recovery file, which does not change the document's mark Saved.
void LibreOfficeFiles::keepCopy(const DocumentReference& document, const std::string& path) try {
    const std::string copy = scratch_.forCopy(path);
    const ScopedTempFile temporary(scratch_, copy);
    hasKeptLastCopy_ = false;
    connection_.call([&] {
        Properties properties = with(passwords_.of(document), {property("Overwrite", true)});
        append(properties, ownFilter(document, path));
        Reference<css::document::XDocumentRecovery>(document, UNO_QUERY_THROW)
            ->storeToRecoveryFile(toUno(fileUrl(copy)), sequenceOf(properties));
    });
    const std::string bytes = DiskFileStore().read(copy);
    files_.save(path, [&](ByteSink& sink) { sink.write(bytes); });
    hasKeptLastCopy_ = true;
} catch (const AutomationError& error) {
    if (error.number() != kCommandFailed) throw;
    raiseNotSaved(path, error.description());
}

/// A document that was opened in its own folder has links relative to it.
std::string LibreOfficeFiles::pathToWrite(const DocumentReference& document, const std::string& path) {
    const std::string url = connection_.call([&] { return urlOf(document); });
    return url.empty() || scratch_.contains(url) ? scratch_.forCopy(path) : scratch_.beside(path);
}

void LibreOfficeFiles::write(const DocumentReference& document, const std::string& path,
                             const OfficeFilter& filter, SaveFormat format, const Revision& revise) {
    const FilePassword password(connection_, format, passwords_.of(document));
    Properties properties;
    password.addTo(properties);
    const std::string copy = pathToWrite(document, path);
    const ScopedTempFile temporary(scratch_, copy);
    const PartialFileCleanup cleanup(connection_.process(), copy);
    ModifiedFlag flag(connection_, document);
    const std::string bytes =
        flag.unchangedDuring([&] { store(document, path, copy, filter, properties); },
                             [&] { return password.revised(DiskFileStore().read(copy), revise); });
    files_.save(path, [&](ByteSink& sink) { sink.write(bytes); });
    flag.keep();
}

void LibreOfficeFiles::store(const DocumentReference& document, const std::string& path,
                             const std::string& copy, const OfficeFilter& filter, Properties properties) try {
    append(properties, filter);
    connection_.call([&] { storeCopy(document, copy, properties); });
} catch (const AutomationError& error) {
    if (error.number() != kCommandFailed) throw;
    raiseNotSaved(path, error.description());
}

void LibreOfficeFiles::storeCopy(const DocumentReference& document, const std::string& path,
                                 std::vector<css::beans::PropertyValue> properties) {
    properties.push_back(property("Overwrite", true));
    const ModifiedFlagLock lock(document);
    computePendingFormulas(document);
    Reference<css::frame::XStorable>(document, UNO_QUERY_THROW)
        ->storeToURL(toUno(fileUrl(path)), sequenceOf(properties));
}

std::string LibreOfficeFiles::sourceOf(const DocumentReference& document) {
    return connection_.call([&] {
        OUString path;
        osl::FileBase::getSystemPathFromFileURL(toUno(urlOf(document)), path);
        return fromUno(path);
    });
}

std::string LibreOfficeFiles::exportOf(const std::string& source, const std::string& bytes,
                                       const std::string& path, SaveFormat format,
                                       const std::string& password) {
    const OpenDocument document(
        *this, loadFrom(path, source, mended(bytes, path, format.kind), format.kind, {}, {}));
    passwords_.note(document.get(), password);
    const FilePassword lock(connection_, format, password);
    return lock.opened(exported(document.get(), path, format, {}));
}

void LibreOfficeFiles::close(const DocumentReference& document) try {
    passwords_.forget(document);
    const std::string url = connection_.call([&] {
        std::string place = urlOf(document);
        Reference<css::util::XCloseable>(document, UNO_QUERY_THROW)->close(true);
        return place;
    });
    scratch_.removeCopy(url);
} catch (const AutomationError&) {
    // It is closed already, or the office is.
}

}  // namespace mergeloom::libreoffice
