#pragma once

#include "office/embedded/word/WordContent.h"

#include <memory>
#include <utility>

namespace mergeloom::embedded {

/// A story of a document that is open: what most objects of the model hang on.
struct StoryPlace {
    std::shared_ptr<WordContent> content;
    Story* story;

    [[nodiscard]] EditableStory& editable() const { return content->editable(*story); }
};

}  // namespace mergeloom::embedded
