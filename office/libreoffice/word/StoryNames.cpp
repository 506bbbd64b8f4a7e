#include "office/libreoffice/word/StoryNames.h"

#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/style/XStyle.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/XEndnotesSupplier.hpp>
#include <com/sun/star/text/XFootnotesSupplier.hpp>
#include <com/sun/star/text/XTextFramesSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr const char* kHeaders[] = {"HeaderText", "HeaderTextLeft", "HeaderTextFirst"};
constexpr const char* kFooters[] = {"FooterText", "FooterTextLeft", "FooterTextFirst"};

/// The text's number from 1 among the notes, or 0.
int numberAmong(const Reference<css::container::XIndexAccess>& notes, const TextReference& text) {
    for (sal_Int32 index = 0; index < notes->getCount(); ++index) {
        if (TextReference(notes->getByIndex(index), UNO_QUERY) == text) return index + 1;
    }
    return 0;
}

/// The text's number from 1 among the headers or footers of the page styles in use, or 0.
int numberOnPages(const WriterModel& model, const TextReference& text, const auto& properties) {
    const Reference<css::style::XStyleFamiliesSupplier> families(model.document, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> styles(
        families->getStyleFamilies()->getByName("PageStyles"), UNO_QUERY_THROW);
    int number = 0;
    for (sal_Int32 index = 0; index < styles->getCount(); ++index) {
        const Reference<css::style::XStyle> style(styles->getByIndex(index), UNO_QUERY_THROW);
        if (!style->isInUse()) continue;
        const Reference<css::beans::XPropertySet> page(style, UNO_QUERY_THROW);
        for (const char* property : properties) {
            TextReference found;
            page->getPropertyValue(OUString::createFromAscii(property)) >>= found;
            if (!found.is()) continue;
            ++number;
            if (found == text) return number;
        }
    }
    return 0;
}

}  // namespace

std::string storyNameOf(const WriterModel& model, const TextReference& text) {
    const auto named = [](const char* kind, int number) { return kind + (" " + std::to_string(number)); };
    const Reference<css::text::XFootnotesSupplier> footnotes(model.document, UNO_QUERY_THROW);
    if (const int number = numberAmong(footnotes->getFootnotes(), text)) return named("footnote", number);
    const Reference<css::text::XEndnotesSupplier> endnotes(model.document, UNO_QUERY_THROW);
    if (const int number = numberAmong(endnotes->getEndnotes(), text)) return named("endnote", number);
    if (const int number = numberOnPages(model, text, kHeaders)) return named("header", number);
    if (const int number = numberOnPages(model, text, kFooters)) return named("footer", number);
    const Reference<css::text::XTextFramesSupplier> frames(model.document, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> boxes(frames->getTextFrames(), UNO_QUERY_THROW);
    return named("text box", std::max(1, numberAmong(boxes, text)));
}

}  // namespace mergeloom::libreoffice
