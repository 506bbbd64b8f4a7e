#pragma once

#include "base/FileStore.h"
#include "office/embedded/word/WordContent.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

class EmbeddedApplication;

class EmbeddedDocument final : public word::Document {
  public:
    /// A document that was opened has its path as full name, a new one a name without a folder.
    EmbeddedDocument(std::weak_ptr<EmbeddedApplication> application, FileStore& files,
                     std::shared_ptr<WordContent> content, std::string fullName, bool wasOpened);

    word::ApplicationPtr Application() override;
    word::WindowPtr ActiveWindow() override;
    word::BookmarksPtr Bookmarks() override;
    word::FieldsPtr Fields() override;
    word::MailMergePtr MailMerge() override;
    word::TablesPtr Tables() override;

    std::string Name() override;
    std::string FullName() override { return fullName_; }
    bool Saved() override { return content_->isSaved(); }
    void SetSaved(bool saved) override { content_->setSaved(saved); }

    void Save() override;
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override;
    void Close(word::WdSaveOptions saveChanges) override;
    bool Undo(int times) override;

    [[nodiscard]] const std::shared_ptr<WordContent>& content() const { return content_; }

  private:
    void write(const std::string& fileName);

    std::weak_ptr<EmbeddedApplication> application_;
    FileStore& files_;
    std::shared_ptr<WordContent> content_;
    std::string fullName_;
    bool hasFile_;
};

}  // namespace mergeloom::embedded
