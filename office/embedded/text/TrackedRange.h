#pragma once

#include "base/Units.h"

namespace mergeloom::embedded {

class Story;

/// A range of a story that follows edits: the story moves the ends of every tracked range when text is
/// inserted or removed. Ranges and the selection are based on it.
class TrackedRange {
  public:
    TrackedRange(Story& story, CharacterPosition start, CharacterPosition end);
    TrackedRange(const TrackedRange&) = delete;
    TrackedRange& operator=(const TrackedRange&) = delete;
    ~TrackedRange();

    [[nodiscard]] Story& story() const { return *story_; }
    [[nodiscard]] CharacterPosition start() const { return start_; }
    [[nodiscard]] CharacterPosition end() const { return end_; }
    [[nodiscard]] bool isCaret() const { return start_ == end_; }

    void set(CharacterPosition start, CharacterPosition end);
    void moveTo(Story& story, CharacterPosition start, CharacterPosition end);

  private:
    friend class Story;

    Story* story_;
    CharacterPosition start_;
    CharacterPosition end_;
};

}  // namespace mergeloom::embedded
