#include "office/embedded/text/DomPlace.h"

#include "base/AutomationError.h"

namespace mergeloom::embedded {

namespace {

int depthOf(pugi::xml_node node) {
    int depth = 0;
    for (; node; node = node.parent())
        ++depth;
    return depth;
}

}  // namespace

DomPlace DomPlaces::forRun(const Item* previous, const Item* next) const {
    const DomPlace place = forStartMark(previous, next);
    const bool inDeleted =
        names_.tagOf(place.parent) == WordTag::Deletion || names_.tagOf(place.parent) == WordTag::MoveFrom;
    if (inDeleted) throw AutomationError(kCommandFailed, "The text at this place is marked as deleted.");
    return place;
}

DomPlace DomPlaces::forStartMark(const Item* previous, const Item* next) const {
    const pugi::xml_node paragraph = next ? story_.paragraphOf(next) : pugi::xml_node();
    if (!paragraph) throw AutomationError(kCommandFailed, "No text can stand at this place.");
    const bool sameParagraph =
        previous && story_.paragraphOf(previous) == paragraph && previous->kind != ItemKind::ParagraphMark;
    return sameParagraph ? inParagraph(previous, next) : before(next);
}

DomPlace DomPlaces::forEndMark(const Item* previous, const Item* next) const {
    const pugi::xml_node paragraph = story_.paragraphOf(previous);
    const bool endsBlock = previous->kind == ItemKind::ParagraphMark || previous->kind == ItemKind::RowMark;
    if (!endsBlock && next && story_.paragraphOf(next) == paragraph) return inParagraph(previous, next);
    if (previous->kind != ItemKind::RowMark) return behind(previous);
    const pugi::xml_node table = story_.tableOf(previous);
    const bool lastRow = !next || !isInside(next->node, table);
    return lastRow ? DomPlace{table.parent(), table} : behind(previous);
}

pugi::xml_node DomPlaces::inlineElementOf(const Item* item) const {
    const pugi::xml_node parent = item->node.parent();
    return names_.tagOf(parent) == WordTag::Run ? parent : item->node;
}

DomPlace DomPlaces::inParagraph(const Item* previous, const Item* next) const {
    const DomPlace first = behind(previous);
    if (next->kind == ItemKind::ParagraphMark && first.parent == next->node) return first;
    const DomPlace second = before(next);
    return depthOf(first.parent) <= depthOf(second.parent) ? first : second;
}

DomPlace DomPlaces::behind(const Item* item) const {
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
    return names_.tagOf(item->node) == WordTag::SimpleField;
}

}  // namespace mergeloom::embedded
