#pragma once

#include "office/embedded/text/BookmarkEditor.h"
#include "office/embedded/text/EditJournal.h"
#include "office/embedded/text/FontEditor.h"
#include "office/embedded/text/Story.h"
#include "office/embedded/text/StoryEditor.h"
#include "office/embedded/text/StoryEraser.h"
#include "office/embedded/text/TableEditor.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// A part that contains stories, with what its edits need.
struct EditablePart {
    explicit EditablePart(std::unique_ptr<opc::XmlPart> xmlPart)
        : part(std::move(xmlPart)), names(part->root()), elementFactory(*part, names) {}

    std::unique_ptr<opc::XmlPart> part;
    opc::WordNames names;
    WordElementFactory elementFactory;
};

/// A story with the editors that change it.
struct EditableStory {
    EditableStory(EditablePart& part, pugi::xml_node root, const std::string& name, BookmarkTable& table,
                  EditJournal& journal)
        : story(*part.part, part.names, root, name, table),
          elementFactory(part.elementFactory),
          editor(story, elementFactory, journal),
          bookmarks(story, editor, elementFactory, journal, table),
          eraser(story, bookmarks, journal),
          tables(story, editor, elementFactory, journal),
          fonts(story, editor, elementFactory, journal) {}

    Story story;
    WordElementFactory& elementFactory;
    StoryEditor editor;
    BookmarkEditor bookmarks;
    StoryEraser eraser;
    TableEditor tables;
    FontEditor fonts;
};

}  // namespace mergeloom::embedded
