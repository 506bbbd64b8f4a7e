#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Field.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// A field as it was found in the document. Writer reads Word's fields into its own, of which each is one
/// character of the text, and keeps the codes of those that it does not know.
class WriterField final : public word::Field {
  public:
    WriterField(std::shared_ptr<WriterContent> content, WriterStory& story, ObjectPtr field)
        : content_(std::move(content)), story_(story), field_(std::move(field)) {}

    /// The code as Word would have it, as far as Writer can tell it; else raises kNotAvailable.
    word::RangePtr Code() override;
    word::WdFieldType Type() override;
    void Select() override;
    void Delete() override;

  private:
    [[nodiscard]] const TextObject& field() const;

    std::shared_ptr<WriterContent> content_;
    WriterStory& story_;
    ObjectPtr field_;
};

}  // namespace mergeloom::libreoffice
