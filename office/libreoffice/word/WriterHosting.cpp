#include "office/libreoffice/word/WriterHosting.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/WriterDocument.h"

#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

using ViewCursor = Reference<css::text::XTextViewCursor>;

WriterContent& contentOf(word::Document& document) {
    return *dynamic_cast<WriterDocument&>(document).content();
}

ViewCursor cursorOf(const WriterModel& model) {
    const Reference<css::text::XTextViewCursorSupplier> view(model.model->getCurrentController(),
                                                             UNO_QUERY_THROW);
    return view->getViewCursor();
}

/// Where something else than text is selected, the object model keeps the selection that it had.
void takeSelection(WriterContent& content) try {
    const RangeReference selected(cursorOf(content.model()).get());
    const CursorReference cursor = cursorOver(selected);
    if (cursor.is()) content.select({content.storyOf(rangeOf(cursor)), cursor});
} catch (const css::lang::DisposedException&) {
    throw;
} catch (const css::uno::Exception&) {
}

/// A caret goes over as a place: a cursor may have a mark where it stands, from which the view would go on
/// selecting.
void showSelection(WriterContent& content) {
    const CursorReference& selected = content.selection()->cursor;
    const RangeReference shown = selected->isCollapsed() ? selected->getStart() : rangeOf(selected);
    cursorOf(content.model())->gotoRange(shown, false);
}

}  // namespace

DocumentReference componentOf(word::Document& document) {
    const WriterContent& content = contentOf(document);
    return content.isOpen() ? content.model().document : DocumentReference();
}

void beginEditing(word::Document& document) {
    WriterContent& content = contentOf(document);
    content.call([&] {
        content.forget();
        takeSelection(content);
        content.model().model->lockControllers();
    });
}

/// A caret that is set while nothing is shown does not wait for the layout of all later pages.
void endEditing(word::Document& document) {
    WriterContent& content = contentOf(document);
    content.call([&] {
        try {
            showSelection(content);
        } catch (const css::uno::Exception&) {
            content.model().model->unlockControllers();
            throw;
        }
        content.model().model->unlockControllers();
        content.forget();
    });
}

}  // namespace mergeloom::libreoffice
