#include "office/libreoffice/readback/ReadBack.h"

#include "office/libreoffice/readback/OpenDocumentDigest.h"
#include "office/libreoffice/readback/WordPackageDigest.h"
#include "office/model/DifferingCopy.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

/// Of the formats besides Open Packaging those that hold texts and places both: Word's of 97, rich text, the
/// XML of 2003, OpenDocument; Excel's of 2007 and of 97, OpenDocument.
constexpr int kWordFormats[] = {0, 1, 6, 11, 23};
constexpr int kExcelFormats[] = {-4143, 17, 43, 51, 52, 54, 56, 60};

bool isOpenPackaging(word::WdSaveFormat format) {
    return format >= word::WdSaveFormat::wdFormatXMLDocument &&
           format <= word::WdSaveFormat::wdFormatXMLTemplateMacroEnabled;
}

ContentDigest digestOfDocument(LibreOfficeSession& session, const DocumentReference& document,
                               OfficePart part) {
    return session.connection().call([&] {
        const StoredContent stored = storedContentOf(session, document, part);
        return part == OfficePart::Word ? digestOfText(stored) : digestOfCells(stored);
    });
}

ContentDigest digestOfBytes(LibreOfficeSession& session, const std::string& path, const std::string& bytes,
                            OfficePart part) {
    const OpenDocument copy(session.files(), session.files().openCopy(path, bytes, part));
    return digestOfDocument(session, copy.get(), part);
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
    const OfficePart part = OfficePart::Word;
    if (isOpenPackaging(format)) {
        refuseDifference(digestOfDocument(session, document, part), digestOfWordPackage(bytes, path), path,
                         bytes);
    } else if (std::ranges::find(kWordFormats, static_cast<int>(format)) != std::end(kWordFormats)) {
        refuseDifference(digestOfDocument(session, document, part), digestOfBytes(session, path, bytes, part),
                         path, bytes);
    }
}

void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  excel::XlFileFormat format, const std::string& bytes) {
    if (std::ranges::find(kExcelFormats, static_cast<int>(format)) == std::end(kExcelFormats)) return;
    const OfficePart part = OfficePart::Excel;
    refuseDifference(digestOfDocument(session, document, part), digestOfBytes(session, path, bytes, part),
                     path, bytes);
}

}  // namespace mergeloom::libreoffice
