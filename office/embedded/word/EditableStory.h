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
        : part(std::move(xmlPart)), names(part->root()), elementFactory(*part, names) {}

    std::unique_ptr<opc::XmlPart> part;
    opc::WordNames names;
    WordElementFactory elementFactory;
};

/// A story with the routines that change it.
class EditableStory {
  public:
    EditableStory(EditablePart& part, pugi::xml_node root, const std::string& name, BookmarkTable& bookmarks,
                  EditJournal& journal)
        : story_(*part.part, part.names, root, name, bookmarks),
          elementFactory_(part.elementFactory),
          editor_(story_, part.elementFactory, journal),
          bookmarks_(story_, editor_, part.elementFactory, journal, bookmarks),
          eraser_(story_, bookmarks_, journal),
          tables_(story_, editor_, part.elementFactory, journal),
          fonts_(story_, editor_, part.elementFactory, journal),
          finder_(story_) {}

    Story& story() { return story_; }
    WordElementFactory& elementFactory() { return elementFactory_; }
    StoryEditor& editor() { return editor_; }
    BookmarkEditor& bookmarks() { return bookmarks_; }
    StoryEraser& eraser() { return eraser_; }
    TableEditor& tables() { return tables_; }
    FontEditor& fonts() { return fonts_; }
    BookmarkFinder& finder() { return finder_; }

  private:
    Story story_;
    WordElementFactory& elementFactory_;
    StoryEditor editor_;
    BookmarkEditor bookmarks_;
    StoryEraser eraser_;
    TableEditor tables_;
    FontEditor fonts_;
    BookmarkFinder finder_;
};

}  // namespace mergeloom::embedded
