#include "office/embedded/word/EmbeddedDocument.h"

#include "office/embedded/word/EmbeddedApplication.h"
#include "office/embedded/word/EmbeddedBookmarks.h"
#include "office/embedded/word/EmbeddedFields.h"
#include "office/embedded/word/EmbeddedTables.h"
#include "office/embedded/word/EmbeddedWindow.h"

#include <utility>

namespace mergeloom::embedded {

EmbeddedDocument::EmbeddedDocument(std::weak_ptr<EmbeddedApplication> application,
                                   std::shared_ptr<WordContent> content, DocumentFile file)
    : application_(std::move(application)), content_(std::move(content)), file_(std::move(file)) {}

word::ApplicationPtr EmbeddedDocument::Application() {
    return application_.lock();
}

word::BookmarksPtr EmbeddedDocument::Bookmarks() {
    return std::make_shared<DocumentBookmarks>(content_);
}

word::WindowPtr EmbeddedDocument::ActiveWindow() {
    return std::make_shared<EmbeddedWindow>(content_);
}

word::FieldsPtr EmbeddedDocument::Fields() {
    return fieldsOf(content_);
}

word::MailMergePtr EmbeddedDocument::MailMerge() {
    return std::make_shared<EmbeddedMailMerge>(content_);
}

word::TablesPtr EmbeddedDocument::Tables() {
    Story& body = content_->body().story();
    return std::make_shared<EmbeddedTables>(StoryPlace{content_, &body}, CharacterPosition{0},
                                            CharacterPosition{body.length().value});
}

void EmbeddedDocument::Save() {
    content_->storeParts();
    file_.save(content_->package());
    content_->setSaved(true);
}

void EmbeddedDocument::SaveAs(const std::string& fileName, word::WdSaveFormat format) {
    content_->storeParts();
    file_.saveAs(content_->package(), DocumentFamily::Word, static_cast<int>(format), fileName);
    content_->setSaved(true);
}

void EmbeddedDocument::Close(word::WdSaveOptions saveChanges) {
    if (saveChanges == word::WdSaveOptions::wdSaveChanges && !Saved()) Save();
    if (const auto application = application_.lock()) application->remove(*this);
}

bool EmbeddedDocument::Undo(int times) {
    return times > 0 && content_->undo();
}

}  // namespace mergeloom::embedded
