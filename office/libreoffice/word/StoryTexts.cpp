#include "office/libreoffice/word/StoryTexts.h"

#include "office/libreoffice/word/TextPortions.h"

#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/XEndnotesSupplier.hpp>
#include <com/sun/star/text/XFootnotesSupplier.hpp>
#include <com/sun/star/text/XTextFramesSupplier.hpp>
#include <map>

namespace mergeloom::libreoffice {

namespace {

using css::container::XIndexAccess;
using Properties = Reference<css::beans::XPropertySet>;

/// The texts at the edge of a page, by their properties of the page style.
struct Marginal {
    const char* kind;
    const char* text;
    const char* isOn;
    const char* isShared;  ///< with the one of all pages; none for that one
};

constexpr Marginal kMarginals[] = {
    {"header", "HeaderText", "HeaderIsOn", nullptr},
    {"header", "HeaderTextLeft", "HeaderIsOn", "HeaderIsShared"},
    {"header", "HeaderTextFirst", "HeaderIsOn", "FirstIsShared"},
    {"footer", "FooterText", "FooterIsOn", nullptr},
    {"footer", "FooterTextLeft", "FooterIsOn", "FooterIsShared"},
    {"footer", "FooterTextFirst", "FooterIsOn", "FirstIsShared"},
};

class StoryList {
  public:
    void add(const std::string& kind, const TextReference& text) {
        if (!text.is()) return;
        stories_.push_back({kind + " " + std::to_string(++counts_[kind]), text});
    }
    void addBody(const TextReference& text) { stories_.push_back({"body", text}); }

    [[nodiscard]] std::vector<Story>& stories() { return stories_; }

  private:
    std::vector<Story> stories_;
    std::map<std::string, int> counts_;
};

void addPages(const DocumentReference& document, StoryList& list) {
    const Reference<css::style::XStyleFamiliesSupplier> families(document, UNO_QUERY_THROW);
    const Reference<XIndexAccess> pages(families->getStyleFamilies()->getByName("PageStyles"),
                                        UNO_QUERY_THROW);
    for (sal_Int32 index = 0; index < pages->getCount(); ++index) {
        const Properties page(pages->getByIndex(index), UNO_QUERY_THROW);
        // Writer creates its own styles at their first use, or when any other property is read. That sets the
        // document's mark Modified and resets it.
        if (!isTrue(page, "IsPhysical")) continue;
        for (const Marginal& marginal : kMarginals) {
            if (!isTrue(page, marginal.isOn)) continue;
            if (marginal.isShared != nullptr && isTrue(page, marginal.isShared)) continue;
            TextReference text;
            page->getPropertyValue(OUString::createFromAscii(marginal.text)) >>= text;
            list.add(marginal.kind, text);
        }
    }
}

void addNotes(const Reference<XIndexAccess>& notes, const std::string& kind, StoryList& list) {
    for (sal_Int32 number = 0; number < notes->getCount(); ++number)
        list.add(kind, TextReference(notes->getByIndex(number), UNO_QUERY));
}

void addFrames(const DocumentReference& document, StoryList& list) {
    const Reference<XIndexAccess> frames(
        Reference<css::text::XTextFramesSupplier>(document, UNO_QUERY_THROW)->getTextFrames(),
        UNO_QUERY_THROW);
    for (sal_Int32 index = 0; index < frames->getCount(); ++index)
        list.add("text box", TextReference(frames->getByIndex(index), UNO_QUERY));
}

/// Every text document has this one page, and no other way leads to its shapes.
Reference<XIndexAccess> shapesOf(const DocumentReference& document) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    return {Reference<css::drawing::XDrawPageSupplier>(document, UNO_QUERY_THROW)->getDrawPage(),
            UNO_QUERY_THROW};
#pragma GCC diagnostic pop
}

/// A drawn shape of Word's has its text in a frame that hangs on it.
void addShapes(const DocumentReference& document, StoryList& list) {
    const Reference<XIndexAccess> shapes = shapesOf(document);
    for (sal_Int32 index = 0; index < shapes->getCount(); ++index) {
        const Properties shape(shapes->getByIndex(index), UNO_QUERY);
        if (!shape.is() || !shape->getPropertySetInfo()->hasPropertyByName("TextBoxContent")) continue;
        TextReference text;
        shape->getPropertyValue("TextBoxContent") >>= text;
        list.add("text box", text);
    }
}

}  // namespace

std::vector<Story> storiesOf(const WriterModel& model) {
    StoryList list;
    list.addBody(model.body);
    addPages(model.document, list);
    addNotes(Reference<css::text::XFootnotesSupplier>(model.document, UNO_QUERY_THROW)->getFootnotes(),
             "footnote", list);
    addNotes(Reference<css::text::XEndnotesSupplier>(model.document, UNO_QUERY_THROW)->getEndnotes(),
             "endnote", list);
    addFrames(model.document, list);
    addShapes(model.document, list);
    return list.stories();
}

}  // namespace mergeloom::libreoffice
