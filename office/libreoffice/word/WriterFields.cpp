#include "office/libreoffice/word/WriterFields.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/WriterField.h"
#include "office/model/word/FieldCode.h"

namespace mergeloom::libreoffice {

namespace {

void addFields(const std::shared_ptr<WriterContent>& content, const TextReference& story,
               const Reference<css::uno::XInterface>& text, std::vector<word::FieldPtr>& fields) {
    for (FoundField& field : fieldsIn(text))
        fields.push_back(std::make_shared<WriterField>(content, story, std::move(field)));
}

/// The fields of all stories, in order.
std::vector<word::FieldPtr> allFields(const std::shared_ptr<WriterContent>& content) {
    return content->call([&] {
        std::vector<word::FieldPtr> fields;
        for (const Story& story : content->stories())
            addFields(content, story.text, story.text, fields);
        return fields;
    });
}

}  // namespace

word::FieldPtr WriterFields::Item(int number) {
    if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such field.");
    return fields_[static_cast<std::size_t>(number) - 1];
}

word::FieldsPtr WriterMailMerge::Fields() {
    std::vector<word::FieldPtr> fields = allFields(content_);
    std::erase_if(fields,
                  [](const word::FieldPtr& field) { return !word::isInMailMergeFields(field->Type()); });
    return std::make_shared<WriterFields>(std::move(fields));
}

word::FieldsPtr fieldsOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range) {
    std::vector<word::FieldPtr> fields;
    content->call([&] {
        if (!range.cursor->isCollapsed()) addFields(content, range.story, range.cursor, fields);
    });
    return std::make_shared<WriterFields>(std::move(fields));
}

word::FieldsPtr fieldsOf(const std::shared_ptr<WriterContent>& content) {
    return std::make_shared<WriterFields>(allFields(content));
}

}  // namespace mergeloom::libreoffice
