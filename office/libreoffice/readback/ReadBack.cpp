#include "office/libreoffice/readback/ReadBack.h"

#include "office/formats/FormatTable.h"
#include "office/libreoffice/readback/ContentDigest.h"
#include "office/libreoffice/readback/StoredContent.h"
#include "office/model/OfficeDocument.h"

namespace mergeloom::libreoffice {

namespace {

/// Returns whether the texts are compared exactly; formats that lose the places lose parts of the texts, too.
bool isCompared(DocumentFamily family, int number) {
    const FileFormat* const format = findFormat(family, number);
    return format != nullptr && format->places == Places::Kept;
}

bool isOpenPackaging(word::WdSaveFormat format) {
    return format >= word::WdSaveFormat::wdFormatXMLDocument &&
           format <= word::WdSaveFormat::wdFormatXMLTemplateMacroEnabled;
}

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
                  word::WdSaveFormat format, const std::string& bytes) {
    const DocumentKind kind = DocumentKind::Word;
    if (isOpenPackaging(format)) {
        refuseDifference(digestOfDocument(session, document, kind), digestOfWordPackage(bytes, path), path,
                         bytes);
    } else if (isCompared(DocumentFamily::Word, static_cast<int>(format))) {
        refuseDifference(digestOfDocument(session, document, kind), digestOfBytes(session, path, bytes, kind),
                         path, bytes);
    }
}

void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  excel::XlFileFormat format, const std::string& bytes) {
    if (!isCompared(DocumentFamily::Excel, static_cast<int>(format))) return;
    const DocumentKind kind = DocumentKind::Excel;
    refuseDifference(digestOfDocument(session, document, kind), digestOfBytes(session, path, bytes, kind),
                     path, bytes);
}

}  // namespace mergeloom::libreoffice
