#include "office/embedded/word/EmbeddedField.h"

#include "base/AutomationError.h"
#include "office/embedded/word/EmbeddedRange.h"
#include "office/model/word/FieldCode.h"

namespace mergeloom::embedded {

word::RangePtr EmbeddedField::Code() {
    return std::make_shared<EmbeddedRange>(place_.content, *place_.story, code().start, code().end,
                                           RangeText::FieldCode);
}

word::WdFieldType EmbeddedField::Type() {
    return word::typeOfCode(place_.story->code(code().start, code().end));
}

void EmbeddedField::Select() {
    place_.content->selection().moveTo(*place_.story, whole().start, whole().end);
}

void EmbeddedField::Delete() {
    const CharacterRange field = whole();
    place_.content->replace(*place_.story, field.start, field.end, "");
}

CharacterRange EmbeddedField::whole() const {
    if (!place_.story->isPlaced() || !items_.begin->isPlaced() || !items_.end->isPlaced()) {
        throw AutomationError(kObjectDeleted, "The field has been deleted.");
    }
    return {place_.story->positionOf(items_.begin), place_.story->positionOf(items_.end) + CharacterCount{1}};
}

CharacterRange EmbeddedField::code() const {
    const CharacterRange field = whole();
    const bool simple = place_.story->names().tagOf(items_.begin->node) == opc::WordTag::SimpleField;
    const CharacterPosition begin = field.start + CharacterCount{simple ? 0 : 1};
    if (simple) return {begin, begin + CharacterCount{items_.begin->length}};
    const Item* last = items_.separator && items_.separator->isPlaced() ? items_.separator : items_.end;
    return {begin, place_.story->positionOf(last)};
}

}  // namespace mergeloom::embedded
