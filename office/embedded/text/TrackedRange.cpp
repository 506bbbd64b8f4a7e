#include "office/embedded/text/TrackedRange.h"

#include "office/embedded/text/Story.h"

#include <algorithm>

namespace mergeloom::embedded {

TrackedRange::TrackedRange(Story& story, CharacterPosition start, CharacterPosition end)
    : story_(&story), start_(start), end_(end) {
    story_->add(*this);
}

TrackedRange::~TrackedRange() {
    story_->remove(*this);
}

void TrackedRange::set(CharacterPosition start, CharacterPosition end) {
    start_ = start;
    end_ = std::max(start, end);
}

void TrackedRange::moveTo(Story& story, CharacterPosition start, CharacterPosition end) {
    story_->remove(*this);
    story_ = &story;
    story_->add(*this);
    set(start, end);
}

}  // namespace mergeloom::embedded
