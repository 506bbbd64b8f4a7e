#include "office/embedded/word/EmbeddedOffice.h"

#include "base/AutomationError.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/embedded/parts/NewDocument.h"
#include "office/embedded/word/EmbeddedBookmarks.h"
#include "office/embedded/word/EmbeddedFields.h"
#include "office/embedded/word/EmbeddedRange.h"
#include "office/embedded/word/EmbeddedTables.h"
#include "office/embedded/word/WordContent.h"
#include "office/model/OpenDocuments.h"
#include "office/model/Undo.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

namespace {

class EmbeddedWindow final : public word::Window {
  public:
    explicit EmbeddedWindow(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}
    word::SelectionPtr Selection() override { return std::make_shared<EmbeddedSelection>(content_); }

  private:
    std::shared_ptr<WordContent> content_;
};

class EmbeddedMailMerge final : public word::MailMerge {
  public:
    explicit EmbeddedMailMerge(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}
    word::FieldsPtr Fields() override { return mailMergeFieldsOf(content_); }

  private:
    std::shared_ptr<WordContent> content_;
};

/// Only the last record can be undone; a record without edits is none.
class EmbeddedUndoRecord final : public word::UndoRecord {
  public:
    explicit EmbeddedUndoRecord(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}

    void StartCustomRecord(const std::string&) override { content_->startRecord(); }
    bool EndCustomRecord() override { return content_->stopRecord(); }

  private:
    std::shared_ptr<WordContent> content_;
};

class EmbeddedApplication;

class EmbeddedDocument final : public word::Document {
  public:
    EmbeddedDocument(std::weak_ptr<EmbeddedApplication> application, std::shared_ptr<WordContent> content,
                     DocumentFile file)
        : application_(std::move(application)),
          content_(std::move(content)),
          bookmarks_(bookmarksOf(content_)),
          selection_(std::make_shared<EmbeddedSelection>(content_)),
          file_(std::move(file)) {}

    word::ApplicationPtr Application() override;
    word::WindowPtr ActiveWindow() override { return std::make_shared<EmbeddedWindow>(content_); }
    word::BookmarksPtr Bookmarks() override { return bookmarks_; }
    word::FieldsPtr Fields() override { return fieldsOf(content_); }
    word::MailMergePtr MailMerge() override { return std::make_shared<EmbeddedMailMerge>(content_); }
    word::TablesPtr Tables() override {
        Story& body = content_->body().story;
        return tablesIn(content_, TrackedRange(body, {0}, {body.length().value}));
    }

    std::string Name() override { return file_.name(); }
    std::string FullName() override { return file_.fullName(); }
    bool Saved() override { return content_->isSaved(); }
    void SetSaved(bool saved) override { content_->setSaved(saved); }

    void Save() override {
        content_->storeParts();
        file_.save(content_->package());
        content_->setSaved(true);
    }
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override {
        content_->storeParts();
        file_.saveAs(content_->package(), DocumentFamily::Word, static_cast<int>(format), fileName);
        content_->setSaved(true);
    }
    void Close(word::WdSaveOptions saveChanges) override;
    bool Undo(int times) override { return times > 0 && content_->undo(); }
    void giveUpUndo() override { content_->giveUpUndo(); }

    [[nodiscard]] const std::shared_ptr<WordContent>& content() const { return content_; }
    [[nodiscard]] const word::SelectionPtr& selection() const { return selection_; }

  private:
    std::weak_ptr<EmbeddedApplication> application_;
    std::shared_ptr<WordContent> content_;
    // These have no state except the content, and a drop requests them several times for each field.
    word::BookmarksPtr bookmarks_;
    word::SelectionPtr selection_;
    DocumentFile file_;
};

/// The engine in the role of Word. The document that was opened or added last is the active one.
class EmbeddedApplication final : public word::Application,
                                  public std::enable_shared_from_this<EmbeddedApplication> {
  public:
    explicit EmbeddedApplication(FileStore& files) : files_(files) {}

    std::string Name() override { return "Microsoft Word"; }
    /// The engine supports the formats and calls of Word 2016 and later.
    std::string Version() override { return "16.0"; }

    word::DocumentsPtr Documents() override {
        return std::make_shared<model::OpenDocuments<word::Documents, word::Document, EmbeddedApplication>>(
            shared_from_this());
    }
    word::SelectionPtr Selection() override { return activeDocument().selection(); }
    word::UndoRecordPtr UndoRecord() override {
        return std::make_shared<EmbeddedUndoRecord>(activeDocument().content());
    }
    bool canSaveAs(word::WdSaveFormat format) override {
        return canWrite(DocumentFamily::Word, static_cast<int>(format));
    }
    void Quit(word::WdSaveOptions saveChanges) override {
        while (!documents_.empty()) {
            const std::shared_ptr<EmbeddedDocument> last = documents_.back();
            last->Close(saveChanges);
        }
    }

    word::DocumentPtr open(const std::string& fileName) {
        opc::Package package = opc::Package::read(files_.read(fileName), fileName);
        return list(std::make_shared<WordContent>(std::move(package), files_), fileName, true);
    }
    word::DocumentPtr add(const std::string& templatePath) {
        opc::Package package = templatePath.empty()
                                   ? initialPackage(newDocumentParts())
                                   : opc::Package::read(files_.read(templatePath), templatePath);
        auto content = std::make_shared<WordContent>(std::move(package), files_);
        return list(std::move(content), "Document" + std::to_string(++added_), false);
    }
    [[nodiscard]] const std::vector<std::shared_ptr<EmbeddedDocument>>& documents() const {
        return documents_;
    }
    void remove(const EmbeddedDocument& document) {
        std::erase_if(documents_, [&](const auto& candidate) { return candidate.get() == &document; });
    }

  private:
    word::DocumentPtr list(std::shared_ptr<WordContent> content, const std::string& fullName,
                           bool wasOpened) {
        documents_.push_back(std::make_shared<EmbeddedDocument>(weak_from_this(), std::move(content),
                                                                DocumentFile(files_, fullName, wasOpened)));
        return documents_.back();
    }
    [[nodiscard]] const EmbeddedDocument& activeDocument() const {
        if (documents_.empty()) throw AutomationError(kNotAvailable, "No document is open.");
        return *documents_.back();
    }

    FileStore& files_;
    std::vector<std::shared_ptr<EmbeddedDocument>> documents_;
    int added_ = 0;
};

word::ApplicationPtr EmbeddedDocument::Application() {
    return application_.lock();
}

void EmbeddedDocument::Close(word::WdSaveOptions saveChanges) {
    if (saveChanges == word::WdSaveOptions::wdSaveChanges && !Saved()) Save();
    if (const auto application = application_.lock()) application->remove(*this);
}

}  // namespace

word::ApplicationPtr makeWordApplication(FileStore& files) {
    return std::make_shared<EmbeddedApplication>(files);
}

}  // namespace mergeloom::embedded
