#pragma once

#include "office/embedded/text/BookmarkEditor.h"
#include "office/embedded/text/BookmarkFinder.h"
#include "office/embedded/text/EditJournal.h"
#include "office/embedded/text/FontEditor.h"
#include "office/embedded/text/Story.h"
#include "office/embedded/text/StoryEditor.h"
#include "office/embedded/text/StoryEraser.h"
#include "office/embedded/text/TableEditor.h"

#include <string>

namespace mergeloom::embedded {

/// One part that holds stories, with what edits of it need.
struct EditablePart {
    explicit EditablePart(std::unique_ptr<opc::XmlPart> xmlPart)
        : part(std::move(xmlPart)), names(part->root()), skeletons(*part, names) {}

    std::unique_ptr<opc::XmlPart> part;
    opc::WordNames names;
    WordSkeletons skeletons;
};

/// A story with the routines that change it.
class EditableStory {
  public:
    EditableStory(EditablePart& part, pugi::xml_node root, const std::string& name, BookmarkTable& bookmarks,
                  EditJournal& journal)
        : story_(*part.part, part.names, root, name, bookmarks),
          skeletons_(part.skeletons),
          editor_(story_, part.skeletons, journal),
          bookmarks_(story_, editor_, part.skeletons, journal, bookmarks),
          eraser_(story_, bookmarks_, journal),
          tables_(story_, editor_, part.skeletons, journal),
          fonts_(story_, editor_, part.skeletons, journal),
          finder_(story_) {}

    Story& story() { return story_; }
    WordSkeletons& skeletons() { return skeletons_; }
    StoryEditor& editor() { return editor_; }
    BookmarkEditor& bookmarks() { return bookmarks_; }
    StoryEraser& eraser() { return eraser_; }
    TableEditor& tables() { return tables_; }
    FontEditor& fonts() { return fonts_; }
    BookmarkFinder& finder() { return finder_; }

  private:
    Story story_;
    WordSkeletons& skeletons_;
    StoryEditor editor_;
    BookmarkEditor bookmarks_;
    StoryEraser eraser_;
    TableEditor tables_;
    FontEditor fonts_;
    BookmarkFinder finder_;
};

}  // namespace mergeloom::embedded
