#include "office/libreoffice/word/WriterFont.h"

#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/StoryText.h"

#include <cmath>
#include <com/sun/star/beans/XPropertySet.hpp>

namespace mergeloom::libreoffice {

namespace {

/// For the scripts of the West, of East Asia and of those that are written from right to left or joined.
constexpr const char* kHeights[] = {"CharHeight", "CharHeightAsian", "CharHeightComplex"};

}  // namespace

void WriterFont::SetSize(double points) {
    const auto size = static_cast<float>(std::lround(points * 2)) / 2;
    content_->call([&] {
        content_->checkMayEdit();
        const LiveStretch& selected = *content_->selection();
        for (const Stretch part : partsOf(selected.story->map(), {selected.start, selected.end}))
            setSize(content_->cursorOver(*selected.story, part), size);
        content_->settle();
    });
}

void WriterFont::setSize(const Reference<css::uno::XInterface>& text, float points) const {
    const Reference<css::beans::XPropertySet> properties(text, UNO_QUERY_THROW);
    for (const char* height : kHeights)
        properties->setPropertyValue(OUString::createFromAscii(height), css::uno::Any(points));
}

}  // namespace mergeloom::libreoffice
