#include "office/libreoffice/word/Pictures.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>

namespace mergeloom::libreoffice {

namespace {

ShapeKind kindOf(const Reference<css::text::XTextContent>& shape) {
    css::text::TextContentAnchorType anchor = css::text::TextContentAnchorType_AT_PARAGRAPH;
    Reference<css::beans::XPropertySet>(shape, UNO_QUERY_THROW)->getPropertyValue("AnchorType") >>= anchor;
    return anchor == css::text::TextContentAnchorType_AS_CHARACTER ? ShapeKind::Inline : ShapeKind::Floating;
}

/// Every text document has this one page, and no other way leads to it.
Reference<css::drawing::XDrawPage> pageOf(const WriterModel& model) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    return Reference<css::drawing::XDrawPageSupplier>(model.document, UNO_QUERY_THROW)->getDrawPage();
#pragma GCC diagnostic pop
}

}  // namespace

int countShapes(WriterContent& content, const LiveStretch& stretch, ShapeKind kind) {
    if (stretch.isCaret()) return 0;
    const Reference<css::drawing::XDrawPage> page = pageOf(content.model());
    int count = 0;
    for (sal_Int32 index = 0; index < page->getCount(); ++index) {
        const Reference<css::text::XTextContent> shape(page->getByIndex(index), UNO_QUERY);
        if (!shape.is() || kindOf(shape) != kind || !shape->getAnchor().is()) continue;
        const StoryPosition anchor = content.positionOf(shape->getAnchor()->getStart());
        const bool isInside = anchor.story == stretch.story && stretch.start <= anchor.position &&
                              anchor.position < stretch.end;
        if (isInside) ++count;
    }
    return count;
}

}  // namespace mergeloom::libreoffice
