#pragma once

#include "office/embedded/word/EmbeddedField.h"
#include "office/model/word/Fields.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

class EmbeddedFields final : public word::Fields {
  public:
    explicit EmbeddedFields(std::vector<word::FieldPtr> fields) : fields_(std::move(fields)) {}

    int Count() override { return static_cast<int>(fields_.size()); }
    word::FieldPtr Item(int number) override { return fields_[indexOf(number)]; }

  private:
    std::vector<word::FieldPtr> fields_;
};

/// The fields that begin in a stretch of a story.
word::FieldsPtr fieldsOf(const StoryPlace& place, CharacterPosition start, CharacterPosition end);
/// The fields of all stories.
word::FieldsPtr fieldsOf(const std::shared_ptr<WordContent>& content);

class EmbeddedMailMerge final : public word::MailMerge {
  public:
    explicit EmbeddedMailMerge(std::shared_ptr<WordContent> content) : content_(std::move(content)) {}
    word::FieldsPtr Fields() override;

  private:
    std::shared_ptr<WordContent> content_;
};

}  // namespace mergeloom::embedded
