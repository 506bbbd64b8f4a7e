#include "office/libreoffice/host/HostPreview.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

/// Returns the name of a preview, which the sentences of errors contain.
std::string nameOf(DocumentKind kind) {
    return kind == DocumentKind::Excel ? "preview.xlsx" : "preview.docx";
}

}  // namespace

std::string HostPreview::packageOf(const DocumentReference& document, DocumentKind kind) {
    const SaveFormat format = kind == DocumentKind::Excel
                                  ? SaveFormat(excel::XlFileFormat::xlOpenXMLWorkbook)
                                  : SaveFormat(word::WdSaveFormat::wdFormatXMLDocument);
    return session_.files().exportedBytes(document, nameOf(kind), format);
}

void HostPreview::show(const HostWindow& window, const std::string& bytes, DocumentKind kind) {
    const auto makeFrame = [&] { return frames_.make(window); };
    const DocumentReference shown = session_.files().showCopy(nameOf(kind), bytes, kind, makeFrame);
    closeAllBut(shown);
    session_.connection().call([this] {
        if (HostFrame* const front = frame()) front->setShowsBookmarks(false);
    });
}

void HostPreview::end() {
    if (!frames_.areEmpty()) closeAllBut({});
}

void HostPreview::closeAllBut(const DocumentReference& kept) {
    for (const DocumentReference& document :
         session_.connection().call([this] { return frames_.documents(); }))
        if (document != kept) session_.files().close(document);
    session_.connection().call([this] { (void)frame(); });
}

}  // namespace mergeloom::libreoffice
