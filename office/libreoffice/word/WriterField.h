#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Field.h"

#include <com/sun/star/text/XTextField.hpp>
#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

using FieldReference = Reference<css::text::XTextField>;

/// What field of Word's a field of Writer's stands for; wdFieldEmpty for one that code does not tell apart.
word::WdFieldType typeOf(const FieldReference& field);

/// A field of Writer's, one character of the text. Writer reads Word's fields into its own and keeps no code.
class WriterField final : public word::Field {
  public:
    WriterField(std::shared_ptr<WriterContent> content, std::shared_ptr<LiveStretch> stretch,
                FieldReference field)
        : content_(std::move(content)), stretch_(std::move(stretch)), field_(std::move(field)) {}

    /// The code as Word would have it, as far as Writer can tell it; else raises kNotAvailable.
    word::RangePtr Code() override;
    word::WdFieldType Type() override;
    void Select() override;
    void Delete() override;

  private:
    void checkIsThere() const;

    std::shared_ptr<WriterContent> content_;
    std::shared_ptr<LiveStretch> stretch_;
    FieldReference field_;
};

}  // namespace mergeloom::libreoffice
