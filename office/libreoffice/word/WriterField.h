#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Fields.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// Where a field is: in the text, or in the code of another field.
enum class FieldPlace { InText, InCode };

/// A field as it was found in the document. Writer reads Word's fields into its own, of which each is one
/// character of the text, and keeps the codes of those that it does not know.
class WriterField final : public word::Field {
  public:
    WriterField(std::shared_ptr<WriterContent> content, WriterStory& story, ObjectPtr field, FieldPlace place)
        : content_(std::move(content)), story_(story), field_(std::move(field)), place_(place) {}

    /// The code as Word would have it, as far as Writer can tell it; else raises kNotAvailable.
    word::RangePtr Code() override;
    bool isInCode() override { return place_ == FieldPlace::InCode; }
    word::WdFieldType Type() override;
    void Select() override;
    void Delete() override;

  private:
    [[nodiscard]] const TextObject& field() const;

    std::shared_ptr<WriterContent> content_;
    WriterStory& story_;
    ObjectPtr field_;
    FieldPlace place_;
};

}  // namespace mergeloom::libreoffice
