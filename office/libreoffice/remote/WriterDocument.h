#pragma once

#include "office/libreoffice/readback/KeptOriginal.h"
#include "office/libreoffice/remote/DocumentLine.h"
#include "office/model/word/Document.h"

#include <memory>
#include <optional>
#include <string>

namespace mergeloom::libreoffice {

class WriterApplication;

/// Word's document over LibreOffice: handles its files itself and forwards the rest.
class WriterDocument final : public word::Document {
  public:
    /// A document that was opened already has a file of its name.
    WriterDocument(std::weak_ptr<WriterApplication> application, DocumentLinePtr line,
                   const DocumentReference& document, std::string fullName, bool wasOpened);

    /// Repeats the changes on an original from now on, if a file of its format can be one. The office may be
    /// null.
    void keepOriginal(const GraftingOfficePtr& office, const std::string& path);

    /// Returns none if the document is closed.
    [[nodiscard]] const DocumentReference& component() const { return document_; }

    word::SelectionPtr selection();
    word::UndoRecordPtr undoRecord();
    void beginEditing();
    void endEditing();
    /// Closes without saving.
    void drop();

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
    /// Saves in the format of the name's extension.
    void Save() override;
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override;
    void Close(word::WdSaveOptions saveChanges) override;
    bool Undo(int times) override;
    void prepareSave() override;
    void useOriginal(const std::string& path) override { keepOriginal(grafting_, path); }
    void giveUpOriginal() override { original_.reset(); }
    std::optional<model::KeptEntries> keptEntries() override;

  private:
    void write(const std::string& fileName, word::WdSaveFormat format);
    std::string withMendedBookmarks(const std::string& bytes, const std::string& fileName);

    std::weak_ptr<WriterApplication> application_;
    DocumentLinePtr line_;
    DocumentReference document_;
    std::string fullName_;
    bool hasFile_;
    GraftingOfficePtr grafting_;
    std::unique_ptr<KeptOriginal> original_;  ///< none for a new document, or after its loss was accepted
};

}  // namespace mergeloom::libreoffice
