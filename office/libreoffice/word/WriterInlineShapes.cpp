#include "office/libreoffice/word/WriterInlineShapes.h"

#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/TextPortions.h"

#include <com/sun/star/container/XContentEnumerationAccess.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>

namespace mergeloom::libreoffice {

namespace {

using css::text::TextContentAnchorType;

struct ShapeCounts {
    int inLine = 0;
    int floating = 0;
};

/// Counts the shapes that are anchored to a paragraph or are in a portion of it.
void countAt(const Reference<css::uno::XInterface>& place, ShapeCounts& counts) {
    const Reference<css::container::XContentEnumerationAccess> access(place, UNO_QUERY);
    if (!access.is()) return;
    const auto shapes = access->createContentEnumeration("com.sun.star.text.TextContent");
    while (shapes.is() && shapes->hasMoreElements()) {
        const Reference<css::beans::XPropertySet> shape(shapes->nextElement(), UNO_QUERY_THROW);
        TextContentAnchorType anchor = css::text::TextContentAnchorType_AT_PARAGRAPH;
        shape->getPropertyValue("AnchorType") >>= anchor;
        ++(anchor == css::text::TextContentAnchorType_AS_CHARACTER ? counts.inLine : counts.floating);
    }
}

ShapeCounts shapesIn(const TrackedRange& range) {
    ShapeCounts counts;
    if (range.cursor->isCollapsed()) return counts;
    forEachPortion(
        range.cursor,
        [&](const TextPortion& portion) {
            if (portion.type == "Frame") countAt(portion.properties, counts);
        },
        [&](const Reference<css::uno::XInterface>& paragraph) {
            const RangeReference place(paragraph, UNO_QUERY_THROW);
            if (order::compareStarts(range.story, place, rangeOf(range.cursor)) >= 0)
                countAt(paragraph, counts);
        });
    return counts;
}

}  // namespace

int WriterInlineShapes::Count() {
    return content_->call([&] { return shapesIn(*range_).inLine; });
}

void WriterInlineShapes::AddPicture(const std::string& fileName) {
    content_->call([&] { TextEditor(*content_).replaceByPicture(*range_, fileName); });
}

int countFloatingShapes(const TrackedRange& range) {
    return shapesIn(range).floating;
}

}  // namespace mergeloom::libreoffice
