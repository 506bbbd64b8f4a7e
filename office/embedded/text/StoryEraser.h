#pragma once

#include "office/embedded/text/BookmarkEditor.h"

namespace mergeloom::embedded {

/// Removes text from a story. Bookmarks whose whole text is removed are removed, too; those that lose a part
/// shrink.
class StoryEraser {
  public:
    StoryEraser(Story& story, BookmarkEditor& bookmarks, EditJournal& journal)
        : story_(story), bookmarks_(bookmarks), journal_(journal) {}

    /// Erases the items between two positions. The mark that ends the story, or the cell that the range
    /// begins in, stays. Raises an AutomationError, and changes nothing, for a range that covers a part of a
    /// table's structure or only one end of a field.
    void erase(CharacterPosition start, CharacterPosition end);
    /// Raises the errors of erase.
    void check(CharacterPosition start, CharacterPosition end) const;

  private:
    [[nodiscard]] CharacterPosition withoutLastMark(CharacterPosition start, CharacterPosition end) const;
    void checkStructure(CharacterPosition start, CharacterPosition end) const;
    void checkFields(CharacterPosition start, CharacterPosition end) const;
    /// Raises an AutomationError for a position inside of an element that counts as several characters.
    void checkWhole(CharacterPosition position) const;
    /// Returns true if a part of the item's paragraph is before it or, within it, before the position.
    [[nodiscard]] bool hasTextBefore(const Item* item, CharacterPosition start) const;
    void removeCoveredBookmarks(CharacterPosition start, CharacterPosition end);
    void eraseItems(CharacterPosition start, CharacterPosition end);
    void trim(Item* item, CharacterPosition start, CharacterPosition end);
    /// Erases the table that an item is in; returns how many characters were removed and sets the item to the
    /// one after them.
    std::int64_t eraseTable(Item*& item, pugi::xml_node table);
    void eraseParagraphMark(Item* mark);
    void erasePartOfRun(Item* item);
    void moveContent(const Item* mark, const Item* next, pugi::xml_node second);
    /// Moves the marks of bookmarks before an item out of an element that is about to be removed.
    void preserveMarks(const Item* item, pugi::xml_node element);
    /// Does the same for ends of comments and of other ranges that may reach beyond a paragraph.
    void preserveOthers(pugi::xml_node paragraph);
    /// Removes an element with the text boxes in it, and with a content control around blocks when it was the
    /// last one.
    void removeElement(pugi::xml_node element);
    /// Returns the innermost cell with both items; none when they share none.
    [[nodiscard]] pugi::xml_node commonCell(const Item* first, const Item* last) const;

    Story& story_;
    BookmarkEditor& bookmarks_;
    EditJournal& journal_;
};

}  // namespace mergeloom::embedded
