#include "office/embedded/word/EmbeddedFields.h"

namespace mergeloom::embedded {

namespace {

using word::WdFieldType;

bool servesMailMerge(WdFieldType type) {
    switch (type) {
        case WdFieldType::wdFieldMergeField:
        case WdFieldType::wdFieldMergeRec:
        case WdFieldType::wdFieldMergeSeq:
        case WdFieldType::wdFieldNext:
        case WdFieldType::wdFieldNextIf:
        case WdFieldType::wdFieldSkipIf:
            return true;
        default:
            return false;
    }
}

void collect(const StoryPlace& place, CharacterPosition start, CharacterPosition end,
             std::vector<word::FieldPtr>& fields) {
    for (const FieldItems& items : fieldsBetween(*place.story, start, end)) {
        fields.push_back(std::make_shared<EmbeddedField>(place, items));
    }
}

std::vector<word::FieldPtr> allFields(const std::shared_ptr<WordContent>& content) {
    std::vector<word::FieldPtr> fields;
    for (Story* story : content->stories()) {
        if (story->isPlaced()) collect({content, story}, {0}, {story->length().value}, fields);
    }
    return fields;
}

}  // namespace

word::FieldsPtr fieldsOf(const StoryPlace& place, CharacterPosition start, CharacterPosition end) {
    std::vector<word::FieldPtr> fields;
    if (start < end) collect(place, start, end, fields);
    return std::make_shared<EmbeddedFields>(std::move(fields));
}

word::FieldsPtr fieldsOf(const std::shared_ptr<WordContent>& content) {
    return std::make_shared<EmbeddedFields>(allFields(content));
}

word::FieldsPtr EmbeddedMailMerge::Fields() {
    std::vector<word::FieldPtr> fields = allFields(content_);
    std::erase_if(fields, [](const word::FieldPtr& field) { return !servesMailMerge(field->Type()); });
    return std::make_shared<EmbeddedFields>(std::move(fields));
}

}  // namespace mergeloom::embedded
