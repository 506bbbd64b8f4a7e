#include "office/libreoffice/word/WriterHosting.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/WriterDocument.h"

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

/// Marks what the view selects while the document is read. Word hides names that begin so.
constexpr const char* kViewMark = "_MergeloomView";

using ViewCursor = Reference<css::text::XTextViewCursor>;

WriterContent& contentOf(word::Document& document) {
    return *dynamic_cast<WriterDocument&>(document).content();
}

ViewCursor cursorOf(const WriterModel& model) {
    const Reference<css::text::XTextViewCursorSupplier> view(model.model->getCurrentController(),
                                                             UNO_QUERY_THROW);
    return view->getViewCursor();
}

/// Suppresses undo steps during its life and restores the document's modified flag.
class Unnoticed {
  public:
    explicit Unnoticed(const WriterModel& model)
        : model_(model), wasModified_(model.modifiable->isModified()) {
        model_.undo->lock();
    }
    Unnoticed(const Unnoticed&) = delete;
    Unnoticed& operator=(const Unnoticed&) = delete;
    ~Unnoticed() {
        try {
            model_.undo->unlock();
            if (!wasModified_) model_.modifiable->setModified(false);
        } catch (const css::uno::Exception&) {
            // The office ended; so did the document.
        }
    }

  private:
    const WriterModel& model_;
    const bool wasModified_;
};

/// Without a mark when something else than text is selected.
void markViewSelection(const WriterModel& model) try {
    const ViewCursor cursor = cursorOf(model);
    const Reference<css::text::XTextContent> mark(model.factory->createInstance("com.sun.star.text.Bookmark"),
                                                  UNO_QUERY_THROW);
    Reference<css::container::XNamed>(mark, UNO_QUERY_THROW)->setName(OUString::createFromAscii(kViewMark));
    cursor->getText()->insertTextContent(RangeReference(cursor.get()), mark, true);
} catch (const css::lang::DisposedException&) {
    throw;
} catch (const css::uno::Exception&) {
}

/// Nobody reads the document without a mark for the selection in it, so that it is found in whatever story it
/// stands.
void takeSelection(WriterContent& content) {
    const Unnoticed unnoticed(content.model());
    markViewSelection(content.model());
    content.call([&] {
        const MarkPtr mark = content.marks().find(kViewMark);
        if (!mark) return;
        content.select({mark->story, mark->place.start, mark->place.end});
        content.removeMark(mark);
    });
}

void showSelection(WriterContent& content) {
    const LiveStretch selected = *content.selection();
    const Stretch stretch{selected.start, selected.end};
    cursorOf(content.model())->gotoRange(rangeOf(content.cursorOver(*selected.story, stretch)), false);
}

}  // namespace

DocumentReference componentOf(word::Document& document) {
    const WriterContent& content = contentOf(document);
    return content.isOpen() ? content.model().document : DocumentReference();
}

void beginEditing(word::Document& document) {
    WriterContent& content = contentOf(document);
    content.callOutside([&] { content.model().model->lockControllers(); });
    try {
        content.forget();
        content.callOutside([&] { takeSelection(content); });
    } catch (const AutomationError&) {
        content.callOutside([&] { content.model().model->unlockControllers(); });
        throw;
    }
}

void endEditing(word::Document& document) {
    WriterContent& content = contentOf(document);
    content.call([&] {
        content.flush();
        content.model().model->unlockControllers();
        showSelection(content);
    });
    content.forget();
}

}  // namespace mergeloom::libreoffice
