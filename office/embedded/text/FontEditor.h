#pragma once

#include "office/embedded/text/StoryEditor.h"

namespace mergeloom::embedded {

/// Changes the formatting of characters.
class FontEditor {
  public:
    FontEditor(Story& story, StoryEditor& editor, WordElementFactory& elementFactory, EditJournal& journal)
        : story_(story), editor_(editor), elementFactory_(elementFactory), journal_(journal) {}

    /// Gives the text between two positions, paragraph marks included, a size in half-points (ECMA-376 Part
    /// 1, 17.3.2.38 and 17.3.2.39).
    void setSize(CharacterPosition start, CharacterPosition end, int halfPoints);

  private:
    void setRunSize(pugi::xml_node run, int halfPoints);
    void setMarkSize(pugi::xml_node paragraph, int halfPoints);
    /// Replaces an element's properties of one tag by a copy that may be changed, an empty one when it has
    /// none, and returns the copy.
    pugi::xml_node replaceProperties(pugi::xml_node element, opc::WordTag tag, std::string_view name);
    void writeSize(pugi::xml_node runProperties, int halfPoints);

    Story& story_;
    StoryEditor& editor_;
    WordElementFactory& elementFactory_;
    EditJournal& journal_;
};

}  // namespace mergeloom::embedded
