#include "office/com/word/ComDocument.h"

#include "office/com/automation/OfficeErrors.h"
#include "office/com/word/ComWordApplication.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Selection.h"

#include <utility>

namespace mergeloom::com {

namespace {

class ComWindow final : public word::Window {
  public:
    ComWindow(ComWordModelPtr model, AutomationObject window)
        : model_(std::move(model)), window_(std::move(window)) {}
    word::SelectionPtr Selection() override {
        return makeSelection(model_, window_.object("Selection", "Selection"));
    }

  private:
    ComWordModelPtr model_;
    AutomationObject window_;
};

class ComMailMerge final : public word::MailMerge {
  public:
    ComMailMerge(ComWordModelPtr model, AutomationObject document)
        : model_(std::move(model)), document_(std::move(document)) {}
    word::FieldsPtr Fields() override {
        return makeDocumentFields(model_, document_, FieldChoice::OfMailMerge);
    }

  private:
    ComWordModelPtr model_;
    AutomationObject document_;
};

}  // namespace

word::ApplicationPtr ComDocument::Application() {
    return application_.lock();
}

word::WindowPtr ComDocument::ActiveWindow() {
    return std::make_shared<ComWindow>(model_, document_.object("Window", "ActiveWindow"));
}

word::BookmarksPtr ComDocument::Bookmarks() {
    if (bookmarks_) return bookmarks_;
    const AutomationObject bookmarks = document_.object("Bookmarks", "Bookmarks");
    known_ = std::make_shared<KnownNames>(bookmarks, "Bookmark");
    bookmarks_ = makeBookmarks(model_, bookmarks, known_);
    return bookmarks_;
}

word::MailMergePtr ComDocument::MailMerge() {
    return std::make_shared<ComMailMerge>(model_, document_);
}

void ComDocument::Save() {
    checkSavable(document_);
    savingFile(model_->session(), FullName(), [&] { document_.call("Save"); });
}

void ComDocument::SaveAs(const std::string& fileName, word::WdSaveFormat format) {
    savingFile(model_->session(), fileName, [&] {
        document_.call("SaveAs",
                       {{"FileName", fileName}, {"FileFormat", format}, {"AddToRecentFiles", false}});
    });
}

void ComDocument::Close(word::WdSaveOptions saveChanges) {
    if (isClosed_) return;
    if (saveChanges == word::WdSaveOptions::wdSaveChanges && !Saved()) Save();
    document_.call("Close", {{"SaveChanges", word::WdSaveOptions::wdDoNotSaveChanges}});
    isClosed_ = true;
    if (const auto application = application_.lock()) application->remove(*this);
}

bool ComDocument::Undo(int times) {
    if (times < 1 || !document_.call("Undo", {{"Times", times}}).truth()) return false;
    if (known_) known_->forget();
    if (std::exchange(step_, {}).wasSaved) SetSaved(true);
    return true;
}

void ComDocument::startRecord() {
    step_ = {true, Saved()};
    SetSaved(true);
}

bool ComDocument::endRecord() {
    if (!std::exchange(step_.isOpen, false)) return false;
    const bool isChanged = !Saved();
    if (!isChanged) SetSaved(step_.wasSaved);
    return isChanged;
}

}  // namespace mergeloom::com
