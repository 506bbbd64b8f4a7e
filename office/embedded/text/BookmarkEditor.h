#pragma once

#include "office/embedded/text/Story.h"
#include "office/embedded/text/StoryEditor.h"

#include <string>
#include <unordered_set>
#include <vector>

namespace mergeloom::embedded {

/// Finds, adds, moves and removes the bookmarks of one story.
class BookmarkEditor {
  public:
    BookmarkEditor(Story& story, StoryEditor& editor, WordElementFactory& elementFactory,
                   EditJournal& journal, BookmarkTable& table)
        : story_(story), editor_(editor), elementFactory_(elementFactory), journal_(journal), table_(table) {}

    /// Marks a range of the story; the name must be free. A range of some but not all columns of a table is
    /// marked by its columns (ECMA-376 Part 1, 17.13.6.2).
    /// Raises an AutomationError, and changes nothing, if no bookmark can start or end there.
    BookmarkRecord& add(const std::string& name, std::int64_t id, CharacterPosition start,
                        CharacterPosition end);
    /// Raises the errors of add.
    void check(CharacterPosition start, CharacterPosition end) const;
    /// Returns the bookmarks that a range overlaps, or that a caret is in or touches, in the order of their
    /// places. The rest of the story is not searched.
    std::vector<BookmarkRecord*> in(CharacterPosition start, CharacterPosition end);
    /// Removes a bookmark of this story; its text stays.
    void remove(BookmarkRecord& record);
    /// Removes the bookmarks in text boxes inside an element that is about to be removed.
    void unlistTextBoxes(pugi::xml_node element);
    /// Moves one end; the other end is moved along when it would be passed. Errors as for add.
    void moveStart(BookmarkRecord& record, CharacterPosition start);
    void moveEnd(BookmarkRecord& record, CharacterPosition end);

  private:
    void insertStart(Item* mark, CharacterPosition start);
    void insertEnd(Item* mark, CharacterPosition end, Item* start);
    void insertAfter(Item* mark, Item* start);
    void insertMark(Item* item, DomPlace place, Item* next);
    void removeMark(Item* item);
    /// Returns true if a range covers several cells of a table but no whole row.
    [[nodiscard]] bool isRangeOfColumns(CharacterPosition start, CharacterPosition end) const;
    /// Updates the columns of a bookmark that was moved.
    void updateColumns(const BookmarkRecord& record);
    void setColumns(pugi::xml_node mark, CharacterPosition start, CharacterPosition end) const;
    /// Adds the bookmarks, `count` of them, that start before an item and end after the position.
    void addEnclosing(Item* first, CharacterPosition end, int count,
                      std::unordered_set<BookmarkRecord*>& found);
    [[nodiscard]] bool encloses(const BookmarkRecord& record, const Item* first, CharacterPosition end) const;

    Story& story_;
    StoryEditor& editor_;
    WordElementFactory& elementFactory_;
    EditJournal& journal_;
    BookmarkTable& table_;
    // Bookmarks that a search found far ahead of its start; looked at first, so that a bookmark around
    // thousands of others is not searched for again and again.
    std::vector<BookmarkRecord*> farStarts_;
};

}  // namespace mergeloom::embedded
