#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Fields.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

class WriterFields final : public word::Fields {
  public:
    explicit WriterFields(std::vector<word::FieldPtr> fields) : fields_(std::move(fields)) {}

    int Count() override { return static_cast<int>(fields_.size()); }
    word::FieldPtr Item(int number) override;

  private:
    std::vector<word::FieldPtr> fields_;
};

class WriterMailMerge final : public word::MailMerge {
  public:
    explicit WriterMailMerge(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    word::FieldsPtr Fields() override;

  private:
    std::shared_ptr<WriterContent> content_;
};

/// The fields whose places lie in the stretch, in order.
word::FieldsPtr fieldsIn(const std::shared_ptr<WriterContent>& content, const LiveStretch& stretch);
/// The fields of all stories.
word::FieldsPtr allFields(const std::shared_ptr<WriterContent>& content);

}  // namespace mergeloom::libreoffice
