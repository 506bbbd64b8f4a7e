#include "office/embedded/word/EmbeddedField.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/word/EmbeddedRange.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mergeloom::embedded {

namespace {

using word::WdFieldType;

struct FieldKeyword {
    std::string_view keyword;
    WdFieldType type;
};

constexpr auto kKeywords = std::to_array<FieldKeyword>({
    {"IF", WdFieldType::wdFieldIf},
    {"NEXTIF", WdFieldType::wdFieldNextIf},
    {"SKIPIF", WdFieldType::wdFieldSkipIf},
    {"QUOTE", WdFieldType::wdFieldQuote},
    {"NEXT", WdFieldType::wdFieldNext},
    {"MERGEREC", WdFieldType::wdFieldMergeRec},
    {"MERGEFIELD", WdFieldType::wdFieldMergeField},
    {"MERGESEQ", WdFieldType::wdFieldMergeSeq},
});

}  // namespace

WdFieldType fieldTypeOf(const std::string& code) {
    const std::string_view trimmed = trimBlanks(code);
    const std::string_view keyword = trimmed.substr(0, trimmed.find_first_of(" \t\""));
    const auto isIt = [&](const FieldKeyword& entry) { return equalsIgnoringCase(entry.keyword, keyword); };
    const auto* found = std::find_if(kKeywords.begin(), kKeywords.end(), isIt);
    return found == kKeywords.end() ? WdFieldType::wdFieldEmpty : found->type;
}

word::RangePtr EmbeddedField::Code() {
    return std::make_shared<EmbeddedRange>(place_.content, *place_.story, code().start, code().end,
                                           RangeText::FieldCode);
}

WdFieldType EmbeddedField::Type() {
    return fieldTypeOf(place_.story->code(code().start, code().end));
}

void EmbeddedField::Select() {
    place_.content->selection().moveTo(*place_.story, whole().start, whole().end);
}

void EmbeddedField::Delete() {
    const Stretch field = whole();
    place_.content->replace(*place_.story, field.start, field.end, "");
}

Stretch EmbeddedField::whole() const {
    if (!place_.story->isPlaced() || !items_.begin->placed || !items_.end->placed) {
        throw AutomationError(kObjectDeleted, "The field has been deleted.");
    }
    return {ItemTree::positionOf(items_.begin), ItemTree::positionOf(items_.end) + CharacterCount{1}};
}

Stretch EmbeddedField::code() const {
    const Stretch field = whole();
    const bool simple = place_.story->names().tagOf(items_.begin->node) == WordTag::SimpleField;
    const CharacterPosition begin = field.start + CharacterCount{simple ? 0 : 1};
    if (simple) return {begin, begin + CharacterCount{items_.begin->length}};
    const Item* last = items_.separator && items_.separator->placed ? items_.separator : items_.end;
    return {begin, ItemTree::positionOf(last)};
}

}  // namespace mergeloom::embedded
