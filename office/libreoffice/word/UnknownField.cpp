#include "office/libreoffice/word/UnknownField.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/lang/XComponent.hpp>

namespace mergeloom::libreoffice {

namespace {

Reference<css::container::XEnumeration> partsOf(const Reference<css::uno::XInterface>& whole) {
    return Reference<css::container::XEnumerationAccess>(whole, UNO_QUERY_THROW)->createEnumeration();
}

bool beginsField(const Reference<css::beans::XPropertySet>& portion) {
    OUString type;
    portion->getPropertyValue("TextPortionType") >>= type;
    return type == "TextFieldStart";
}

/// Returns Writer's object for the field whose first mark the cursor has selected.
Reference<css::lang::XComponent> fieldUnder(const CursorReference& cursor) {
    const auto paragraph = partsOf(cursor)->nextElement();
    const auto portions = partsOf(Reference<css::uno::XInterface>(paragraph, UNO_QUERY_THROW));
    while (portions->hasMoreElements()) {
        const Reference<css::beans::XPropertySet> portion(portions->nextElement(), UNO_QUERY_THROW);
        if (beginsField(portion)) return {portion->getPropertyValue("Bookmark"), UNO_QUERY_THROW};
    }
    throw AutomationError(kCommandFailed, "LibreOffice does not find the field in the document.");
}

}  // namespace

ObjectPtr unknownFieldAtStart(const StoryMap& map, Stretch stretch) {
    for (const ObjectPtr& field : map.objectsIn({stretch.start, stretch.start + kMark}, ObjectKind::Field)) {
        if (field->codeLength > CharacterCount{0} && field->place.end <= stretch.end) return field;
    }
    return nullptr;
}

CharacterCount dissolveUnknownField(WriterContent& content, WriterStory& story, const ObjectPtr& field) {
    const Stretch whole = field->place;
    const Stretch code = codeOf(*field);
    fieldUnder(content.cursorOver(story, {whole.start, whole.start + kMark}))->dispose();
    content.needle().forget();
    for (const CharacterPosition mark : {whole.end - kMark, code.end, whole.start})
        story.map().removeText({mark, mark + kMark});
    const Stretch left{whole.start, whole.start + (code.end - code.start)};
    if (left.start < left.end) {
        content.cursorOver(story, left)->setString(OUString());
        content.needle().forget();
        story.map().removeText(left);
    }
    story.map().removeObject(field);
    return field->codeLength + kMark;
}

}  // namespace mergeloom::libreoffice
