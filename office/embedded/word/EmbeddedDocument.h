#pragma once

#include "office/embedded/parts/DocumentFile.h"
#include "office/embedded/word/WordContent.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

class EmbeddedApplication;

class EmbeddedDocument final : public word::Document {
  public:
    EmbeddedDocument(std::weak_ptr<EmbeddedApplication> application, std::shared_ptr<WordContent> content,
                     DocumentFile file);

    word::ApplicationPtr Application() override;
    word::WindowPtr ActiveWindow() override;
    word::BookmarksPtr Bookmarks() override;
    word::FieldsPtr Fields() override;
    word::MailMergePtr MailMerge() override;
    word::TablesPtr Tables() override;

    std::string Name() override { return file_.name(); }
    std::string FullName() override { return file_.fullName(); }
    bool Saved() override { return content_->isSaved(); }
    void SetSaved(bool saved) override { content_->setSaved(saved); }

    void Save() override;
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override;
    void Close(word::WdSaveOptions saveChanges) override;
    bool Undo(int times) override;

    [[nodiscard]] const std::shared_ptr<WordContent>& content() const { return content_; }

  private:
    std::weak_ptr<EmbeddedApplication> application_;
    std::shared_ptr<WordContent> content_;
    DocumentFile file_;
};

}  // namespace mergeloom::embedded
