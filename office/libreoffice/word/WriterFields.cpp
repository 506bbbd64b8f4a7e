#include "office/libreoffice/word/WriterFields.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/WriterField.h"

#include <algorithm>
#include <com/sun/star/text/XTextFieldsSupplier.hpp>
#include <tuple>

namespace mergeloom::libreoffice {

namespace {

using word::WdFieldType;

struct FoundField {
    StoryPosition place;
    FieldReference field;
};

bool servesMailMerge(WdFieldType type) {
    return type == WdFieldType::wdFieldMergeField || type == WdFieldType::wdFieldMergeRec ||
           type == WdFieldType::wdFieldMergeSeq || type == WdFieldType::wdFieldNext ||
           type == WdFieldType::wdFieldNextIf || type == WdFieldType::wdFieldSkipIf;
}

std::size_t numberOf(WriterContent& content, const WriterStory* story) {
    const auto found = std::ranges::find(content.stories(), story, [](WriterStory& each) { return &each; });
    return static_cast<std::size_t>(found - content.stories().begin());
}

std::vector<FoundField> fieldsOf(WriterContent& content) {
    const Reference<css::text::XTextFieldsSupplier> supplier(content.model().document, UNO_QUERY_THROW);
    const auto fields = supplier->getTextFields()->createEnumeration();
    std::vector<FoundField> found;
    while (fields->hasMoreElements()) {
        const FieldReference field(fields->nextElement(), UNO_QUERY);
        if (!field.is()) continue;
        const StoryPosition place = content.positionOf(field->getAnchor()->getStart());
        if (place.story) found.push_back({place, field});
    }
    std::ranges::sort(found, {}, [&](const FoundField& each) {
        return std::tuple(numberOf(content, each.place.story), each.place.position);
    });
    return found;
}

word::FieldPtr makeField(const std::shared_ptr<WriterContent>& content, const FoundField& found) {
    const CharacterPosition end = found.place.position + CharacterCount{1};
    return std::make_shared<WriterField>(
        content, content->live(*found.place.story, found.place.position, end), found.field);
}

}  // namespace

word::FieldPtr WriterFields::Item(int number) {
    if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such field.");
    return fields_[static_cast<std::size_t>(number) - 1];
}

word::FieldsPtr WriterMailMerge::Fields() {
    return content_->call([&] {
        std::vector<word::FieldPtr> fields;
        for (const FoundField& found : fieldsOf(*content_)) {
            if (servesMailMerge(typeOf(found.field))) fields.push_back(makeField(content_, found));
        }
        return std::make_shared<WriterFields>(std::move(fields));
    });
}

word::FieldsPtr fieldsIn(const std::shared_ptr<WriterContent>& content, const LiveStretch& stretch) {
    return content->call([&] {
        std::vector<word::FieldPtr> fields;
        for (const FoundField& found : stretch.isCaret() ? std::vector<FoundField>{} : fieldsOf(*content)) {
            const bool isInside = found.place.story == stretch.story &&
                                  stretch.start <= found.place.position && found.place.position < stretch.end;
            if (isInside) fields.push_back(makeField(content, found));
        }
        return std::make_shared<WriterFields>(std::move(fields));
    });
}

word::FieldsPtr allFields(const std::shared_ptr<WriterContent>& content) {
    return content->call([&] {
        std::vector<word::FieldPtr> fields;
        for (const FoundField& found : fieldsOf(*content))
            fields.push_back(makeField(content, found));
        return std::make_shared<WriterFields>(std::move(fields));
    });
}

}  // namespace mergeloom::libreoffice
