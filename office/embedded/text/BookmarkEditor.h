#pragma once

#include "office/embedded/text/StoryEditor.h"

#include <string>

namespace mergeloom::embedded {

/// Sets, moves and takes away the marks of bookmarks in one story.
class BookmarkEditor {
  public:
    BookmarkEditor(Story& story, StoryEditor& editor, WordSkeletons& skeletons, EditJournal& journal,
                   BookmarkTable& table)
        : story_(story), editor_(editor), skeletons_(skeletons), journal_(journal), table_(table) {}

    /// Marks a stretch of the story; the name must be free. A stretch of some but not all columns of a table
    /// is marked by its columns (ECMA-376 Part 1, 17.13.6.2).
    BookmarkRecord& add(const std::string& name, std::int64_t id, CharacterPosition start,
                        CharacterPosition end);
    /// Takes a bookmark of this story away; its text stays.
    void remove(BookmarkRecord& record);
    /// Moves one end; the other end goes along where it would be passed.
    void moveStart(BookmarkRecord& record, CharacterPosition start);
    void moveEnd(BookmarkRecord& record, CharacterPosition end);

  private:
    Item* insertStart(pugi::xml_node mark, CharacterPosition start);
    Item* insertEnd(pugi::xml_node mark, CharacterPosition end, const Item* start);
    void insertMark(Item* item, DomPlace place, Item* next);
    void removeMark(Item* item);
    void setColumns(pugi::xml_node mark, CharacterPosition start, CharacterPosition end) const;

    Story& story_;
    StoryEditor& editor_;
    WordSkeletons& skeletons_;
    EditJournal& journal_;
    BookmarkTable& table_;
};

/// Whether Word takes a text as a bookmark's name: at most 40 letters, digits and "_", no digit first.
bool isBookmarkName(std::string_view name);

}  // namespace mergeloom::embedded
