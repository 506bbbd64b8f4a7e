#include "office/libreoffice/word/WriterEditor.h"

#include "office/libreoffice/session/PendingEvents.h"
#include "office/libreoffice/word/WriterBookmarks.h"
#include "office/libreoffice/word/WriterFields.h"
#include "office/libreoffice/word/WriterSelection.h"
#include "office/libreoffice/word/WriterTables.h"
#include "office/model/Undo.h"

#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

using ViewCursor = Reference<css::text::XTextViewCursor>;

ViewCursor cursorOf(const WriterModel& model) {
    const Reference<css::text::XTextViewCursorSupplier> view(model.model->getCurrentController(),
                                                             UNO_QUERY_THROW);
    return view->getViewCursor();
}

/// Returns the window of the document's frame.
Reference<css::awt::XWindow> windowOf(const WriterModel& model) {
    return model.model->getCurrentController()->getFrame()->getContainerWindow();
}

/// Copies the selection of the view, if it is text, to the object model.
void takeSelection(WriterContent& content) try {
    const RangeReference selected(cursorOf(content.model()).get());
    const CursorReference cursor = cursorOver(selected);
    if (cursor.is()) content.select({content.storyOf(rangeOf(cursor)), cursor});
} catch (const css::lang::DisposedException&) {
    throw;
} catch (const css::uno::Exception&) {
}

/// Copies the selection of the object model to the view. A caret is passed as a place, since a cursor may
/// have a mark there from which the view would go on selecting.
void showSelection(WriterContent& content) {
    const CursorReference& selected = content.selection()->cursor;
    const RangeReference shown = selected->isCollapsed() ? selected->getStart() : rangeOf(selected);
    cursorOf(content.model())->gotoRange(shown, false);
}

/// A record is one entry of Writer's undo list, or none when nothing was edited.
class WriterUndoRecord final : public model::UndoRecord {
  public:
    explicit WriterUndoRecord(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    void StartCustomRecord(const std::string& name) override {
        content_->call([&] { content_->startRecord(name); });
    }
    bool EndCustomRecord() override {
        return content_->call([&] { return content_->endRecord(); });
    }

  private:
    std::shared_ptr<WriterContent> content_;
};

class WriterEditor final : public DocumentEditor {
  public:
    explicit WriterEditor(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}
    ~WriterEditor() override { content_->close(); }

    word::SelectionPtr Selection() override { return std::make_shared<WriterSelection>(content_); }
    word::UndoRecordPtr UndoRecord() override { return std::make_shared<WriterUndoRecord>(content_); }
    word::BookmarksPtr Bookmarks() override { return bookmarksOf(content_); }
    word::FieldsPtr Fields() override { return fieldsOf(content_); }
    word::MailMergePtr MailMerge() override { return makeMailMerge(content_); }
    word::TablesPtr Tables() override { return tablesOf(content_); }

    bool Saved() override {
        return content_->call([&] { return !content_->model().modifiable->isModified(); });
    }
    void SetSaved(bool saved) override {
        content_->call([&] { content_->model().modifiable->setModified(!saved); });
    }
    bool Undo(int times) override {
        return content_->call([&] { return content_->undo(times); });
    }

    void setProtection(const std::string& fileName, opc::DocumentProtection protection) override {
        content_->setProtection(fileName, protection);
    }
    void takeFile(const std::string& fileName, const std::string& content) override {
        content_->takeFile(fileName, content);
    }
    std::vector<std::string> namesOverTables() override;

    void beginEditing() override;
    void endEditing() override;
    void close() override { content_->close(); }

  private:
    void release();

    std::shared_ptr<WriterContent> content_;
};

std::vector<std::string> WriterEditor::namesOverTables() {
    return content_->call([&] {
        std::vector<std::string> names;
        // The user may have edited the document since.
        content_->bookmarks().forgetPlaces();
        for (const std::string& name : content_->bookmarkNames().all()) {
            if (content_->bookmarks().get(name).beyond == Beyond::Table) names.push_back(name);
        }
        return names;
    });
}

void WriterEditor::beginEditing() {
    content_->call([&] {
        content_->forget();
        takeSelection(*content_);
        windowOf(content_->model())->setEnable(false);
        content_->model().model->lockControllers();
    });
}

/// Sets the caret before the view is unlocked: after that it would wait for the layout of all later pages.
void WriterEditor::endEditing() {
    content_->call([&] {
        try {
            showSelection(*content_);
        } catch (const css::uno::Exception&) {
            release();
            throw;
        }
        content_->forget();
        release();
    });
}

/// Handles the input from the time of editing before the window is enabled, and before the view is unlocked,
/// since Writer lays out no later pages while it is locked.
void WriterEditor::release() {
    handlePendingEvents(content_->office());
    content_->call([&] {
        windowOf(content_->model())->setEnable(true);
        content_->model().model->unlockControllers();
    });
}

}  // namespace

DocumentEditorPtr makeEditor(const Reference<css::uno::XComponentContext>& office,
                             const DocumentReference& document) {
    return std::make_shared<WriterEditor>(std::make_shared<WriterContent>(office, document));
}

}  // namespace mergeloom::libreoffice
