#pragma once

#include "office/embedded/text/BookmarkEditor.h"

namespace mergeloom::embedded {

/// Takes text out of a story. Bookmarks all of whose text goes, go too; those that lose a part shrink.
class StoryEraser {
  public:
    StoryEraser(Story& story, BookmarkEditor& bookmarks, EditJournal& journal)
        : story_(story), bookmarks_(bookmarks), journal_(journal) {}

    /// Erases what stands between two positions. The mark that ends the story, or the cell that the range
    /// begins in, stays. Raises an AutomationError, and changes nothing, for a range that covers a part of
    /// a table's structure or only one end of a field.
    void erase(CharacterPosition start, CharacterPosition end);

  private:
    [[nodiscard]] CharacterPosition withoutLastMark(CharacterPosition start, CharacterPosition end) const;
    void checkStructure(CharacterPosition start, CharacterPosition end) const;
    void checkFields(CharacterPosition start, CharacterPosition end) const;
    void removeCoveredBookmarks(CharacterPosition start, CharacterPosition end);
    void eraseItems(CharacterPosition start, CharacterPosition end);
    void eraseItem(Item* item);
    void trim(Item* item, CharacterPosition start, CharacterPosition end);
    void eraseTable(Item* first, pugi::xml_node table);
    void eraseParagraphMark(Item* mark);
    void erasePartOfRun(Item* item);
    /// Moves marks of bookmarks out of a field that is about to go.
    void rescueMarks(pugi::xml_node field);
    /// The innermost cell that holds both items; none when no cell does.
    [[nodiscard]] pugi::xml_node commonCell(const Item* first, const Item* last) const;
    [[nodiscard]] pugi::xml_node outermostTable(const Item* item, pugi::xml_node within) const;

    Story& story_;
    BookmarkEditor& bookmarks_;
    EditJournal& journal_;
};

}  // namespace mergeloom::embedded
