#pragma once

#include "office/embedded/text/FieldFinder.h"
#include "office/embedded/word/StoryPlace.h"
#include "office/model/word/Fields.h"

namespace mergeloom::embedded {

class EmbeddedField final : public word::Field {
  public:
    EmbeddedField(StoryPlace place, const FieldItems& items) : place_(std::move(place)), items_(items) {}

    word::RangePtr Code() override;
    bool isInCode() override { return items_.isInCode; }
    word::WdFieldType Type() override;
    void Select() override;
    void Delete() override;

  private:
    /// Raises kObjectDeleted when the field is gone.
    [[nodiscard]] CharacterRange whole() const;
    [[nodiscard]] CharacterRange code() const;

    StoryPlace place_;
    FieldItems items_;
};

}  // namespace mergeloom::embedded
