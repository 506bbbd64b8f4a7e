#include "office/embedded/word/EmbeddedDocument.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/embedded/word/EmbeddedApplication.h"
#include "office/embedded/word/EmbeddedBookmarks.h"
#include "office/embedded/word/EmbeddedFields.h"
#include "office/embedded/word/EmbeddedTables.h"
#include "office/embedded/word/EmbeddedWindow.h"
#include "office/embedded/word/WordSaveFormats.h"

#include <utility>

namespace mergeloom::embedded {

EmbeddedDocument::EmbeddedDocument(std::weak_ptr<EmbeddedApplication> application, FileStore& files,
                                   std::shared_ptr<WordContent> content, std::string fullName, bool wasOpened)
    : application_(std::move(application)),
      files_(files),
      content_(std::move(content)),
      fullName_(std::move(fullName)),
      hasFile_(wasOpened) {}

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

std::string EmbeddedDocument::Name() {
    return fileNameOnly(fullName_);
}

void EmbeddedDocument::Save() {
    if (!hasFile_) throw AutomationError(kFileCouldNotBeSaved, "The document has no file name yet.");
    write(fullName_);
}

void EmbeddedDocument::SaveAs(const std::string& fileName, word::WdSaveFormat format) {
    Package& package = content_->package();
    const std::string mainPart = package.mainPart();
    const std::string formerType = package.contentTypes().of(mainPart);
    setSaveFormat(package, mainPart, format, fileName);
    try {
        write(fileName);
    } catch (const AutomationError&) {
        // The document keeps its former name, and with it the kind of file that the name says.
        package.contentTypes().setOverride(mainPart, formerType);
        throw;
    }
    fullName_ = fileName;
    hasFile_ = true;
}

void EmbeddedDocument::Close(word::WdSaveOptions saveChanges) {
    if (saveChanges == word::WdSaveOptions::wdSaveChanges && !Saved()) Save();
    if (const auto application = application_.lock()) application->remove(*this);
}

bool EmbeddedDocument::Undo(int times) {
    return times > 0 && content_->undo();
}

void EmbeddedDocument::write(const std::string& fileName) {
    content_->storeParts();
    files_.save(fileName, [this](ByteSink& sink) { content_->package().write(sink); });
    content_->setSaved(true);
}

}  // namespace mergeloom::embedded
