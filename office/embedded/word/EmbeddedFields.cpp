#include "office/embedded/word/EmbeddedFields.h"

#include "base/AutomationError.h"
#include "office/embedded/text/RangeContents.h"
#include "office/embedded/word/EmbeddedRange.h"
#include "office/model/word/FieldCode.h"

#include <utility>
#include <vector>

namespace mergeloom::embedded {

namespace {

class EmbeddedField final : public word::Field {
  public:
    EmbeddedField(StoryPlace place, const FieldItems& items) : place_(std::move(place)), items_(items) {}

    word::RangePtr Code() override {
        return std::make_shared<EmbeddedRange>(place_.content, *place_.story, code().start, code().end,
                                               RangeText::FieldCode);
    }
    bool isInCode() override { return items_.isInCode; }
    word::WdFieldType Type() override {
        return word::typeOfCode(place_.story->code(code().start, code().end));
    }
    void Select() override { place_.content->selection().moveTo(*place_.story, whole().start, whole().end); }
    void Delete() override {
        const CharacterRange field = whole();
        place_.content->replace(*place_.story, field.start, field.end, "");
    }

  private:
    /// Raises kObjectDeleted if the field is gone.
    [[nodiscard]] CharacterRange whole() const;
    [[nodiscard]] CharacterRange code() const;

    StoryPlace place_;
    FieldItems items_;
};

CharacterRange EmbeddedField::whole() const {
    if (!place_.story->isPlaced() || !items_.begin->isPlaced() || !items_.end->isPlaced()) {
        throw AutomationError(kObjectDeleted, "The field has been deleted.");
    }
    return {place_.story->positionOf(items_.begin), place_.story->positionOf(items_.end) + CharacterCount{1}};
}

CharacterRange EmbeddedField::code() const {
    const CharacterRange field = whole();
    const bool simple = place_.story->names().tagOf(items_.begin->node) == opc::WordTag::SimpleField;
    if (simple) return {field.start, field.start + CharacterCount{items_.begin->length}};
    const Item* last = items_.separator && items_.separator->isPlaced() ? items_.separator : items_.end;
    return {field.start + CharacterCount{1}, place_.story->positionOf(last)};
}

using FieldList = std::vector<word::FieldPtr>;

class EmbeddedFields final : public word::Fields {
  public:
    explicit EmbeddedFields(FieldList fields) : fields_(std::move(fields)) {}

    int Count() override { return static_cast<int>(fields_.size()); }
    word::FieldPtr Item(int number) override { return fields_[indexOf(number)]; }

  private:
    FieldList fields_;
};

void collect(const StoryPlace& place, CharacterPosition start, CharacterPosition end, FieldList& fields) {
    for (const FieldItems& items : RangeContents(*place.story, start, end).fields())
        fields.push_back(std::make_shared<EmbeddedField>(place, items));
}

FieldList allFields(const std::shared_ptr<WordContent>& content) {
    FieldList fields;
    for (Story* story : content->stories()) {
        if (story->isPlaced()) collect({content, story}, {0}, {story->length().value}, fields);
    }
    return fields;
}

}  // namespace

word::FieldsPtr fieldsIn(const std::shared_ptr<WordContent>& content, const TrackedRange& range) {
    FieldList fields;
    collect({content, &range.story()}, range.start(), range.end(), fields);
    return std::make_shared<EmbeddedFields>(std::move(fields));
}

word::FieldsPtr fieldsOf(const std::shared_ptr<WordContent>& content) {
    return std::make_shared<EmbeddedFields>(allFields(content));
}

word::FieldsPtr mailMergeFieldsOf(const std::shared_ptr<WordContent>& content) {
    FieldList fields = allFields(content);
    std::erase_if(fields,
                  [](const word::FieldPtr& field) { return !word::isInMailMergeFields(field->Type()); });
    return std::make_shared<EmbeddedFields>(std::move(fields));
}

}  // namespace mergeloom::embedded
