#pragma once

#include "office/embedded/text/FieldFinder.h"
#include "office/embedded/word/StoryPlace.h"
#include "office/model/word/Field.h"

namespace mergeloom::embedded {

class EmbeddedField final : public word::Field {
  public:
    EmbeddedField(StoryPlace place, const FieldItems& items) : place_(std::move(place)), items_(items) {}

    word::RangePtr Code() override;
    word::WdFieldType Type() override;
    void Select() override;
    void Delete() override;

  private:
    /// Raises kObjectDeleted when the field is gone.
    [[nodiscard]] Stretch whole() const;
    [[nodiscard]] Stretch code() const;

    StoryPlace place_;
    FieldItems items_;
};

/// The type of a field by the keyword that its code begins with (ECMA-376 Part 1, 17.16.5).
word::WdFieldType fieldTypeOf(const std::string& code);

}  // namespace mergeloom::embedded
