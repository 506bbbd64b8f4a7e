#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>

namespace mergeloom::libreoffice {

class WriterApplication;

class WriterDocument final : public word::Document {
  public:
    /// A document that was opened has a file under its name already.
    WriterDocument(std::weak_ptr<WriterApplication> application, std::shared_ptr<WriterContent> content,
                   std::string fullName, bool wasOpened);

    [[nodiscard]] const std::shared_ptr<WriterContent>& content() const { return content_; }

    word::ApplicationPtr Application() override;
    word::WindowPtr ActiveWindow() override;
    word::BookmarksPtr Bookmarks() override;
    word::FieldsPtr Fields() override;
    word::MailMergePtr MailMerge() override;
    word::TablesPtr Tables() override;

    std::string Name() override;
    std::string FullName() override { return fullName_; }
    bool Saved() override;
    void SetSaved(bool saved) override;
    /// In the format that the name's extension stands for.
    void Save() override;
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override;
    void Close(word::WdSaveOptions saveChanges) override;
    bool Undo(int times) override;

  private:
    void write(const std::string& fileName, word::WdSaveFormat format);
    std::string withMendedBookmarks(const std::string& bytes, const std::string& fileName);

    std::weak_ptr<WriterApplication> application_;
    std::shared_ptr<WriterContent> content_;
    std::string fullName_;
    bool hasFile_;
};

}  // namespace mergeloom::libreoffice
