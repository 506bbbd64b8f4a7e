#pragma once

#include "office/embedded/text/StoryEditor.h"

#include <pugixml.hpp>

namespace mergeloom::embedded {

/// A range of a story whose text is about to be replaced.
class ReplacementContext {
  public:
    /// The range must be in the story and must not be empty.
    ReplacementContext(const Story& story, CharacterPosition start, CharacterPosition end);

    /// Returns the setting of the new text: the formatting of the first visible character or, if there are
    /// only fields without a result, that of the first code.
    [[nodiscard]] TextSetting setting() const;
    /// Raises an AutomationError for a range of deleted text, which nothing can replace.
    void checkNotDeleted() const;

  private:
    [[nodiscard]] Formatting formatting() const;
    [[nodiscard]] pugi::xml_node container() const;
    [[nodiscard]] bool isDeleted(const Item* item) const;

    const Story& story_;
    CharacterPosition end_;
    Item* first_;
    Item* last_;
};

}  // namespace mergeloom::embedded
