#include "office/libreoffice/word/WriterFields.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/WriterField.h"
#include "office/model/word/FieldCode.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

std::vector<word::FieldPtr> fieldsOf(const std::shared_ptr<WriterContent>& content,
                                     const LiveStretch& stretch) {
    std::vector<word::FieldPtr> fields;
    CharacterPosition endOfCodes;
    for (const ObjectPtr& field : objectsIn(stretch, ObjectKind::Field)) {
        const FieldPlace place = field->place.start < endOfCodes ? FieldPlace::InCode : FieldPlace::InText;
        fields.push_back(std::make_shared<WriterField>(content, *stretch.story, field, place));
        endOfCodes = std::max(endOfCodes, field->place.start + field->codeLength);
    }
    return fields;
}

/// The fields of all stories, in order.
std::vector<word::FieldPtr> fieldsOf(const std::shared_ptr<WriterContent>& content) {
    return content->call([&] {
        std::vector<word::FieldPtr> fields;
        for (WriterStory& story : content->stories())
            std::ranges::copy(fieldsOf(content, {&story, {0}, {story.map().length().value}}),
                              std::back_inserter(fields));
        return fields;
    });
}

}  // namespace

word::FieldPtr WriterFields::Item(int number) {
    if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such field.");
    return fields_[static_cast<std::size_t>(number) - 1];
}

word::FieldsPtr WriterMailMerge::Fields() {
    std::vector<word::FieldPtr> fields = fieldsOf(content_);
    std::erase_if(fields,
                  [](const word::FieldPtr& field) { return !word::isInMailMergeFields(field->Type()); });
    return std::make_shared<WriterFields>(std::move(fields));
}

word::FieldsPtr fieldsIn(const std::shared_ptr<WriterContent>& content, const LiveStretch& stretch) {
    return std::make_shared<WriterFields>(fieldsOf(content, stretch));
}

word::FieldsPtr allFields(const std::shared_ptr<WriterContent>& content) {
    return std::make_shared<WriterFields>(fieldsOf(content));
}

}  // namespace mergeloom::libreoffice
