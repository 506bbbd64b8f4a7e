#include "office/embedded/text/DomPlace.h"

#include "base/AutomationError.h"

namespace mergeloom::embedded {

DomPlace DomPlaces::forRun(const Item* previous, const Item* next, pugi::xml_node container) const {
    DomPlace place = container ? inContainer(previous, next, container) : DomPlace{};
    if (!place.parent) {
        const pugi::xml_node paragraph = paragraphAt(next);
        place = outermost(previous, next, paragraph);
        if (place.parent == paragraph) return place;
    }
    for (pugi::xml_node node = place.parent; names_.tagOf(node) != opc::WordTag::Paragraph;
         node = node.parent()) {
        const opc::WordTag tag = names_.tagOf(node);
        if (tag == opc::WordTag::Deletion || tag == opc::WordTag::MoveFrom) {
            throw AutomationError(kCommandFailed, "The text at this place is marked as deleted.");
        }
    }
    return place;
}

DomPlace DomPlaces::forStartMark(const Item* previous, const Item* next) const {
    return outermost(previous, next, paragraphAt(next));
}

DomPlace DomPlaces::outermost(const Item* previous, const Item* next, pugi::xml_node paragraph) const {
    if (!previous || previous->kind == ItemKind::ParagraphMark) return firstInParagraph(next, paragraph);
    if (const DomPlace place = directlyIn(paragraph, previous); place.parent) return place;
    return isInside(previous->node, paragraph) ? inParagraph(previous, next)
                                               : firstInParagraph(next, paragraph);
}

DomPlace DomPlaces::directlyIn(pugi::xml_node paragraph, const Item* item) const {
    if (item->kind == ItemKind::FieldBegin) return {};
    const pugi::xml_node element = item->isMark() ? item->node : inlineElementOf(item);
    return element.parent() == paragraph ? DomPlace{paragraph, element} : DomPlace{};
}

pugi::xml_node DomPlaces::paragraphAt(const Item* next) const {
    const pugi::xml_node paragraph = next ? story_.paragraphOf(next) : pugi::xml_node();
    if (!paragraph) throw AutomationError(kCommandFailed, "No text can stand at this place.");
    return paragraph;
}

DomPlace DomPlaces::forEndMark(const Item* previous, const Item* next) const {
    const bool endsBlock = previous->kind == ItemKind::ParagraphMark || previous->kind == ItemKind::RowMark;
    if (!endsBlock && next && next->kind == ItemKind::ParagraphMark) {
        if (const DomPlace place = directlyIn(next->node, previous); place.parent) return place;
    }
    const pugi::xml_node paragraph = story_.paragraphOf(previous);
    if (!endsBlock && next && story_.paragraphOf(next) == paragraph) return inParagraph(previous, next);
    if (previous->kind != ItemKind::RowMark) return after(previous);
    const pugi::xml_node table = story_.tableOf(previous);
    const bool lastRow = !next || !isInside(next->node, table);
    return lastRow ? DomPlace{table.parent(), table} : after(previous);
}

pugi::xml_node DomPlaces::inlineElementOf(const Item* item) const {
    const pugi::xml_node parent = item->node.parent();
    return names_.tagOf(parent) == opc::WordTag::Run ? parent : item->node;
}

DomPlace DomPlaces::inParagraph(const Item* previous, const Item* next) const {
    pugi::xml_node both = before(next).parent;
    while (!isInside(previous->node, both))
        both = both.parent();
    DomPlace place = after(previous);
    while (place.parent != both)
        place = {place.parent.parent(), place.parent};
    return place;
}

DomPlace DomPlaces::firstInParagraph(const Item* next, pugi::xml_node paragraph) const {
    DomPlace place = before(next);
    while (place.parent != paragraph)
        place = {place.parent.parent(), place.parent.previous_sibling()};
    return place;
}

DomPlace DomPlaces::inContainer(const Item* previous, const Item* next, pugi::xml_node container) const {
    if (previous && isInside(previous->node, container)) {
        DomPlace place = after(previous);
        while (place.parent != container)
            place = {place.parent.parent(), place.parent};
        return place;
    }
    if (isInside(next->node, container)) {
        DomPlace place = before(next);
        while (place.parent != container)
            place = {place.parent.parent(), place.parent.previous_sibling()};
        return place;
    }
    // An empty container is next to the item that follows or before the marks there, after which the text has
    // to go.
    for (pugi::xml_node following = container.next_sibling(); following && previous && previous->isMark();
         following = following.next_sibling()) {
        if (following == previous->node) return {};
        if (names_.tagOf(following) == opc::WordTag::Run) break;
    }
    return {container, container.last_child()};
}

DomPlace DomPlaces::after(const Item* item) const {
    if (item->kind == ItemKind::FieldBegin && isSimpleField(item)) return {item->node, {}};
    const pugi::xml_node element = inlineElementOf(item);
    return {element.parent(), element};
}

DomPlace DomPlaces::before(const Item* item) const {
    const bool endsElement = item->kind == ItemKind::ParagraphMark || item->kind == ItemKind::RowMark ||
                             (item->kind == ItemKind::FieldEnd && isSimpleField(item));
    if (endsElement) return {item->node, item->node.last_child()};
    const pugi::xml_node element = inlineElementOf(item);
    return {element.parent(), element.previous_sibling()};
}

bool DomPlaces::isSimpleField(const Item* item) const {
    return names_.tagOf(item->node) == opc::WordTag::SimpleField;
}

}  // namespace mergeloom::embedded
