#pragma once

#include "office/libreoffice/word/TextPlace.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <functional>

namespace mergeloom::libreoffice {

/// A piece of a paragraph: a text of one formatting, a field or a mark of it, a picture …
struct TextPortion {
    Reference<css::beans::XPropertySet> properties;
    OUString type;

    [[nodiscard]] RangeReference range() const { return {properties, UNO_QUERY_THROW}; }
};

inline bool isTrue(const Reference<css::beans::XPropertySet>& properties, const char* name) {
    bool value = false;
    properties->getPropertyValue(OUString::createFromAscii(name)) >>= value;
    return value;
}

using OnParagraph = std::function<void(const Reference<css::uno::XInterface>&)>;
using OnPortion = std::function<void(const TextPortion&)>;

inline Reference<css::container::XEnumeration> enumerationOf(const Reference<css::uno::XInterface>& whole) {
    return Reference<css::container::XEnumerationAccess>(whole, UNO_QUERY_THROW)->createEnumeration();
}

/// Calls back for each paragraph in a text or range, the cells of its tables included, and for each portion
/// of it.
inline void forEachPortion(const Reference<css::uno::XInterface>& text, const OnPortion& onPortion,
                           const OnParagraph& onParagraph = {}) {
    for (const auto elements = enumerationOf(text); elements->hasMoreElements();) {
        const Reference<css::uno::XInterface> element(elements->nextElement(), UNO_QUERY_THROW);
        if (const TableReference table{element, UNO_QUERY}; table.is()) {
            for (const OUString& name : table->getCellNames())
                forEachPortion(table->getCellByName(name), onPortion, onParagraph);
            continue;
        }
        if (onParagraph) onParagraph(element);
        for (const auto portions = enumerationOf(element); portions->hasMoreElements();) {
            TextPortion portion{{portions->nextElement(), UNO_QUERY_THROW}, {}};
            portion.properties->getPropertyValue("TextPortionType") >>= portion.type;
            onPortion(portion);
        }
    }
}

}  // namespace mergeloom::libreoffice
