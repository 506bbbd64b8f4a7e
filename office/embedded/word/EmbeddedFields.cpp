#include "office/embedded/word/EmbeddedFields.h"

#include "office/model/word/FieldCode.h"

namespace mergeloom::embedded {

namespace {

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
    std::erase_if(fields,
                  [](const word::FieldPtr& field) { return !word::isInMailMergeFields(field->Type()); });
    return std::make_shared<EmbeddedFields>(std::move(fields));
}

}  // namespace mergeloom::embedded
