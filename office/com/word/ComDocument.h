#pragma once

#include "office/com/word/ComWordModel.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>

namespace mergeloom::com {

class ComWordApplication;

/// The step that is recorded for Undo. Word has no member for the changes of a record, so the mark Saved is
/// set for the time of the record.
struct RecordedStep {
    bool isOpen = false;
    bool wasSaved = false;  ///< before the record
};

/// A document of an installed Word.
class ComDocument final : public word::Document {
  public:
    ComDocument(std::weak_ptr<ComWordApplication> application, ComWordModelPtr model,
                AutomationObject document)
        : application_(std::move(application)), model_(std::move(model)), document_(std::move(document)) {}

    word::ApplicationPtr Application() override;
    word::WindowPtr ActiveWindow() override;
    word::BookmarksPtr Bookmarks() override;
    word::FieldsPtr Fields() override { return makeDocumentFields(model_, document_, FieldChoice::All); }
    word::MailMergePtr MailMerge() override;
    word::TablesPtr Tables() override { return makeTables(model_, document_.object("Tables", "Tables")); }

    std::string Name() override { return document_.get("Name").text(); }
    std::string FullName() override { return document_.get("FullName").text(); }
    bool Saved() override { return document_.get("Saved").truth(); }
    void SetSaved(bool saved) override { document_.put("Saved", saved); }
    /// Word would show a dialog to save a document without a file, or one that it must not change.
    void Save() override;
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override;
    void Close(word::WdSaveOptions saveChanges) override;
    bool Undo(int times) override;

    void startRecord();
    /// Returns true when anything was changed since the start.
    bool endRecord();

  private:
    std::weak_ptr<ComWordApplication> application_;
    ComWordModelPtr model_;
    AutomationObject document_;
    KnownNamesPtr known_;           ///< as the next one
    word::BookmarksPtr bookmarks_;  ///< since their first use
    RecordedStep step_;
    bool isClosed_ = false;
};

}  // namespace mergeloom::com
