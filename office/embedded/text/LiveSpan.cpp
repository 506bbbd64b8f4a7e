#include "office/embedded/text/LiveSpan.h"

#include "office/embedded/text/Story.h"

#include <algorithm>

namespace mergeloom::embedded {

LiveSpan::LiveSpan(Story& story, CharacterPosition start, CharacterPosition end)
    : story_(&story), start_(start), end_(end) {
    story_->add(*this);
}

LiveSpan::~LiveSpan() {
    story_->remove(*this);
}

void LiveSpan::set(CharacterPosition start, CharacterPosition end) {
    start_ = start;
    end_ = std::max(start, end);
}

void LiveSpan::moveTo(Story& story, CharacterPosition start, CharacterPosition end) {
    story_->remove(*this);
    story_ = &story;
    story_->add(*this);
    set(start, end);
}

}  // namespace mergeloom::embedded
