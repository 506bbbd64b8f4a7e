#pragma once

#include "office/libreoffice/word/FieldFinder.h"
#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Field.h"

#include <memory>
#include <utility>

namespace mergeloom::libreoffice {

/// A field as it was found in the document. Writer reads Word's fields into its own, of which each is one
/// character of the text, and keeps the codes of those that it does not know.
class WriterField final : public word::Field {
  public:
    WriterField(std::shared_ptr<WriterContent> content, TextReference story, FoundField field)
        : content_(std::move(content)), story_(std::move(story)), field_(std::move(field)) {}

    /// The code as Word would have it, as far as Writer can tell it; else raises kNotAvailable.
    word::RangePtr Code() override;
    bool isInCode() override { return field_.isInCode; }
    word::WdFieldType Type() override;
    void Select() override;
    void Delete() override;

  private:
    [[nodiscard]] TrackedRange range() const;

    std::shared_ptr<WriterContent> content_;
    TextReference story_;
    FoundField field_;
};

}  // namespace mergeloom::libreoffice
