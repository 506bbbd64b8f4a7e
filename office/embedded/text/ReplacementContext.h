#pragma once

#include "office/embedded/text/StoryEditor.h"

#include <pugixml.hpp>

namespace mergeloom::embedded {

/// A stretch of a story that text is about to take the place of.
class ReplacementContext {
  public:
    /// The stretch must lie in the story.
    ReplacementContext(const Story& story, CharacterPosition start, CharacterPosition end);

    /// What the new text takes over. Its formatting is that of the first character to be seen; where only
    /// fields without a result stand, that of the first code.
    [[nodiscard]] TextSetting setting() const;
    /// Raises an AutomationError for a stretch of deleted text, in whose place nothing can stand.
    void checkIsThere() const;

  private:
    [[nodiscard]] Formatting formatting() const;
    [[nodiscard]] pugi::xml_node container() const;
    [[nodiscard]] bool isDeleted(const Item* item) const;

    const Story& story_;
    CharacterPosition end_;
    Item* first_ = nullptr;  // none for an empty stretch
    Item* last_ = nullptr;
};

}  // namespace mergeloom::embedded
