#include "office/libreoffice/word/StoryTexts.h"

#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/text/XEndnotesSupplier.hpp>
#include <com/sun/star/text/XFootnotesSupplier.hpp>
#include <com/sun/star/text/XTextFramesSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

using css::container::XIndexAccess;
using css::container::XNameAccess;

TextReference numbered(const Reference<XIndexAccess>& notes, int number) {
    if (number >= notes->getCount()) return {};
    return {notes->getByIndex(number), UNO_QUERY};
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
TextReference textInShape(const DocumentReference& document, const OUString& name) {
    const Reference<XIndexAccess> shapes = shapesOf(document);
    for (sal_Int32 index = 0; index < shapes->getCount(); ++index) {
        const Reference<css::container::XNamed> shape(shapes->getByIndex(index), UNO_QUERY);
        if (!shape.is() || shape->getName() != name) continue;
        const Reference<css::beans::XPropertySet> properties(shape, UNO_QUERY_THROW);
        if (!properties->getPropertySetInfo()->hasPropertyByName("TextBoxContent")) return {};
        TextReference text;
        properties->getPropertyValue("TextBoxContent") >>= text;
        return text;
    }
    return {};
}

}  // namespace

TextSource pageText(const WriterModel& model, const std::string& page, const char* property) {
    return [document = model.document, page, property] {
        const Reference<css::style::XStyleFamiliesSupplier> families(document, UNO_QUERY_THROW);
        const Reference<XNameAccess> pages(families->getStyleFamilies()->getByName("PageStyles"),
                                           UNO_QUERY_THROW);
        TextReference text;
        if (!pages->hasByName(toUno(page))) return text;
        const Reference<css::beans::XPropertySet> style(pages->getByName(toUno(page)), UNO_QUERY_THROW);
        style->getPropertyValue(OUString::createFromAscii(property)) >>= text;
        return text;
    };
}

TextSource footnoteText(const WriterModel& model, int number) {
    return [document = model.document, number] {
        const Reference<css::text::XFootnotesSupplier> notes(document, UNO_QUERY_THROW);
        return numbered(notes->getFootnotes(), number);
    };
}

TextSource endnoteText(const WriterModel& model, int number) {
    return [document = model.document, number] {
        const Reference<css::text::XEndnotesSupplier> notes(document, UNO_QUERY_THROW);
        return numbered(notes->getEndnotes(), number);
    };
}

TextSource boxText(const WriterModel& model, const std::string& name) {
    return [document = model.document, name] {
        const Reference<css::text::XTextFramesSupplier> supplier(document, UNO_QUERY_THROW);
        const Reference<XNameAccess> frames = supplier->getTextFrames();
        if (frames->hasByName(toUno(name))) return TextReference(frames->getByName(toUno(name)), UNO_QUERY);
        return textInShape(document, toUno(name));
    };
}

}  // namespace mergeloom::libreoffice
