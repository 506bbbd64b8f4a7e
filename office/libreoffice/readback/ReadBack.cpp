#include "office/libreoffice/readback/ReadBack.h"

#include "office/libreoffice/readback/ContentDigest.h"
#include "office/libreoffice/readback/StoredContent.h"
#include "office/libreoffice/session/OfficeFilters.h"
#include "office/model/OfficeDocument.h"

namespace mergeloom::libreoffice {

namespace {

ContentDigest digestOfDocument(LibreOfficeSession& session, const DocumentReference& document,
                               DocumentKind kind) {
    return session.connection().call([&] {
        const StoredContent stored = storedContentOf(session, document, kind);
        return kind == DocumentKind::Word ? digestOfText(stored) : digestOfCells(stored);
    });
}

ContentDigest digestOfBytes(LibreOfficeSession& session, const std::string& path, const std::string& bytes,
                            DocumentKind kind) {
    const OpenDocument copy(session.files(), session.files().openCopy(path, bytes, kind));
    return digestOfDocument(session, copy.get(), kind);
}

void refuseDifference(const ContentDigest& expected, const ContentDigest& written, const std::string& path,
                      const std::string& bytes) {
    const std::string found = difference(expected, written);
    if (found.empty()) return;
    throw model::DifferingCopy("The file '" + path +
                                   "' was not written, since what LibreOffice makes of the document is not "
                                   "what it shows: " +
                                   found + ".",
                               bytes);
}

}  // namespace

void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  SaveFormat format, const std::string& bytes) {
    const FileFormat* const row = findFormat(format);
    // Formats that lose the bookmarks lose parts of the texts, too.
    if (row == nullptr || row->places == Places::Lost) return;
    const bool isWordPackage = format.kind == DocumentKind::Word && row->engine;
    const ContentDigest written =
        isWordPackage ? digestOfWordPackage(bytes, path) : digestOfBytes(session, path, bytes, format.kind);
    refuseDifference(digestOfDocument(session, document, format.kind), written, path, bytes);
}

}  // namespace mergeloom::libreoffice
