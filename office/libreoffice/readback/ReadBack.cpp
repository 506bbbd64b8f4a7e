#include "office/libreoffice/readback/ReadBack.h"

#include "office/libreoffice/readback/StoredContent.h"
#include "office/libreoffice/session/OfficeFilters.h"
#include "office/model/OfficeDocument.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

constexpr std::size_t kShownLength = 40;

ContentDigest digestOfDocument(LibreOfficeSession& session, const DocumentReference& document,
                               DocumentKind kind) {
    return session.connection().call([&] {
        const StoredContent stored = storedContentOf(session, document, kind);
        return kind == DocumentKind::Word ? digestOfText(stored) : digestOfCells(stored);
    });
}

ContentDigest digestOfBytes(LibreOfficeSession& session, const std::string& path, const std::string& bytes,
                            DocumentKind kind, const std::string& password) {
    const OpenDocument copy(session.files(), session.files().openCopy(path, bytes, kind, password));
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

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string shown(std::string_view text, std::size_t from) {
    while (from > 0 && from < text.size() && isContinuation(text[from]))
        --from;
    std::size_t end = std::min(text.size(), from + kShownLength);
    while (end < text.size() && isContinuation(text[end]))
        ++end;
    return "\"" + std::string(text.substr(from, end - from)) + (end < text.size() ? "…\"" : "\"");
}

std::string differenceOfTexts(std::string_view expected, std::string_view written) {
    const auto [there, here] = std::ranges::mismatch(expected, written);
    const auto from = static_cast<std::size_t>(there - expected.begin());
    return shown(written, from) + " instead of " + shown(expected, from);
}

}  // namespace

std::string difference(const ContentDigest& expected, const ContentDigest& written) {
    for (const auto& [name, text] : expected.places) {
        // Other names are changed by some formats or belong to the office.
        if (!word::isBookmarkName(name) || word::isHiddenBookmark(name)) continue;
        const auto found = written.places.find(name);
        if (found == written.places.end()) return "the place '" + name + "' is missing in it";
        if (found->second != text)
            return "the place '" + name + "' holds " + differenceOfTexts(text, found->second);
    }
    if (expected.text == written.text) return {};
    return "its text has " + differenceOfTexts(expected.text, written.text);
}

void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  SaveFormat format, const std::string& bytes) {
    const FileFormat* const row = findFormat(format);
    // Formats that lose the bookmarks lose parts of the texts, too.
    if (row == nullptr || row->places == Places::Lost) return;
    const bool isWordPackage = format.kind == DocumentKind::Word && row->engine;
    // Open Packaging is checked before it is encrypted. LibreOffice 25.2 refuses a password that is not
    // needed.
    const std::string password = row->engine ? std::string() : session.files().passwordOf(document);
    const ContentDigest written = isWordPackage ? digestOfWordPackage(bytes, path)
                                                : digestOfBytes(session, path, bytes, format.kind, password);
    refuseDifference(digestOfDocument(session, document, format.kind), written, path, bytes);
}

}  // namespace mergeloom::libreoffice
