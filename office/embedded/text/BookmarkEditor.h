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

    /// Marks a range of the story that check() accepts; the name must be free. A range of some but not all
    /// columns of a table is marked by its columns (ECMA-376 Part 1, 17.13.6.2).
    BookmarkRecord& add(const std::string& name, std::int64_t id, CharacterPosition start,
                        CharacterPosition end);
    /// Raises an AutomationError if no bookmark can start or end there.
    void check(CharacterPosition start, CharacterPosition end) const;
    /// Returns the bookmarks that a range overlaps, or that a caret is in or touches, in the order of their
    /// places. The rest of the story is not searched.
    std::vector<BookmarkRecord*> in(CharacterPosition start, CharacterPosition end);
    /// Removes a bookmark of this story; its text stays.
    void remove(BookmarkRecord& record);
    /// Removes the bookmarks in text boxes inside an element that is about to be removed.
    void unlistTextBoxes(pugi::xml_node element);
    /// Moves one end; the other end is moved along when it would be passed. Raise the errors of check().
    void moveStart(BookmarkRecord& record, CharacterPosition start);
    void moveEnd(BookmarkRecord& record, CharacterPosition end);

  private:
    /// The place of a mark: in the part, and before an item of the story.
    struct MarkPlace {
        DomPlace inPart;
        Item* next;
    };
    [[nodiscard]] MarkPlace startPlace(CharacterPosition start) const;
    [[nodiscard]] MarkPlace endPlace(CharacterPosition end, const Item* start) const;
    static MarkPlace placeAfter(const Item* mark);
    void addStartMark(BookmarkRecord& record, CharacterPosition start, CharacterPosition end);
    void addEndMark(BookmarkRecord& record, CharacterPosition end);
    Item* addMark(ItemKind kind, BookmarkRecord& record, pugi::xml_node mark, Item* next);
    void insertMark(Item* item, const MarkPlace& place);
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
