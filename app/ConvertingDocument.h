#pragma once

#include "app/ConvertedFile.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom {

class ConvertingWord;

using ConvertedWordFile = ConvertedFile<word::Document, word::WdSaveFormat>;

/// A document of an office that converts: all but its file is that of the other office.
class ConvertingDocument final : public word::Document {
  public:
    ConvertingDocument(std::weak_ptr<ConvertingWord> office, ConvertedWordFile file)
        : office_(std::move(office)), file_(std::move(file)) {}

    word::ApplicationPtr Application() override;
    word::WindowPtr ActiveWindow() override;
    word::BookmarksPtr Bookmarks() override;
    word::FieldsPtr Fields() override;
    word::MailMergePtr MailMerge() override;
    word::TablesPtr Tables() override;

    std::string Name() override { return file_.name(); }
    std::string FullName() override { return file_.fullName(); }
    bool Saved() override { return file_.document().Saved(); }
    void SetSaved(bool saved) override { file_.document().SetSaved(saved); }

    void Save() override { file_.save(); }
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override {
        file_.saveAs(fileName, format);
    }
    void Close(word::WdSaveOptions saveChanges) override;
    bool Undo(int times) override { return file_.document().Undo(times); }

  private:
    std::weak_ptr<ConvertingWord> office_;
    ConvertedWordFile file_;
};

}  // namespace mergeloom
