#include "office/libreoffice/word/WriterDocument.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "office/formats/FormatTable.h"
#include "office/libreoffice/readback/ReadBack.h"
#include "office/libreoffice/word/WholeBookmarks.h"
#include "office/libreoffice/word/WriterApplication.h"
#include "office/libreoffice/word/WriterBookmarks.h"
#include "office/libreoffice/word/WriterFields.h"
#include "office/libreoffice/word/WriterSelection.h"
#include "office/libreoffice/word/WriterTables.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// Returns the format in which a document is written back, by the extension that it was opened with.
word::WdSaveFormat formatOf(const std::string& fileName) {
    const FileFormat* const format =
        findFormatToOpen(DocumentFamily::Word, toLowerAscii(extension(fileName)));
    if (format != nullptr && format->saving) return word::WdSaveFormat{format->number};
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + fileName +
                                                    "' could not be saved: LibreOffice does not write "
                                                    "documents with that extension.");
}

std::set<std::string> namesOverTables(WriterContent& content) {
    std::set<std::string> names;
    for (const MarkPtr& mark : content.marks().all()) {
        const Stretch place = mark->place;
        for (const TablePtr& table : mark->story->map().tables()) {
            if (place.start == table->start && place.end == table->end()) names.insert(mark->name);
        }
    }
    return names;
}

bool isOpenPackaging(word::WdSaveFormat format) {
    return format >= word::WdSaveFormat::wdFormatXMLDocument &&
           format <= word::WdSaveFormat::wdFormatXMLTemplateMacroEnabled;
}

}  // namespace

WriterDocument::WriterDocument(std::weak_ptr<WriterApplication> application,
                               std::shared_ptr<WriterContent> content, std::string fullName, bool wasOpened)
    : application_(std::move(application)),
      content_(std::move(content)),
      fullName_(std::move(fullName)),
      hasFile_(wasOpened) {}

word::ApplicationPtr WriterDocument::Application() {
    return application_.lock();
}

word::WindowPtr WriterDocument::ActiveWindow() {
    return std::make_shared<WriterWindow>(content_);
}

word::BookmarksPtr WriterDocument::Bookmarks() {
    return std::make_shared<DocumentBookmarks>(content_);
}

word::FieldsPtr WriterDocument::Fields() {
    return allFields(content_);
}

word::MailMergePtr WriterDocument::MailMerge() {
    return std::make_shared<WriterMailMerge>(content_);
}

word::TablesPtr WriterDocument::Tables() {
    return content_->call([&] {
        WriterStory& body = content_->body();
        const CharacterPosition end{body.map().length().value};
        return std::make_shared<WriterTables>(content_, LiveStretch{&body, {0}, end});
    });
}

std::string WriterDocument::Name() {
    return fileNameOnly(fullName_);
}

bool WriterDocument::Saved() {
    return content_->callOutside([&] {
        content_->flush();
        return !content_->model().modifiable->isModified();
    });
}

void WriterDocument::SetSaved(bool saved) {
    content_->callOutside([&] {
        content_->flush();
        content_->model().modifiable->setModified(!saved);
    });
}

void WriterDocument::Save() {
    if (!hasFile_) throw AutomationError(kFileCouldNotBeSaved, "The document has no file name yet.");
    write(fullName_, formatOf(fullName_));
}

void WriterDocument::SaveAs(const std::string& fileName, word::WdSaveFormat format) {
    write(fileName, format);
    fullName_ = fileName;
    hasFile_ = true;
}

void WriterDocument::write(const std::string& fileName, word::WdSaveFormat format) {
    content_->call([&] {
        content_->bringMarksToTheirPlaces();
        LibreOfficeSession& session = content_->session();
        const DocumentReference& document = content_->model().document;
        session.files().save(document, fileName, format, [&](const std::string& bytes) {
            std::string mended = isOpenPackaging(format) ? withMendedBookmarks(bytes, fileName) : bytes;
            checkWritten(session, document, fileName, format, mended);
            return mended;
        });
    });
}

std::string WriterDocument::withMendedBookmarks(const std::string& bytes, const std::string& fileName) {
    return packageWithWholeBookmarks(bytes, fileName, namesOverTables(*content_)).value_or(bytes);
}

void WriterDocument::Close(word::WdSaveOptions saveChanges) {
    if (!content_->isOpen()) return;
    if (saveChanges == word::WdSaveOptions::wdSaveChanges && !Saved()) Save();
    content_->close();
    if (const auto application = application_.lock()) application->remove(*this);
}

bool WriterDocument::Undo(int times) {
    return times > 0 && content_->call([&] { return content_->undo(times); });
}

}  // namespace mergeloom::libreoffice
