#pragma once

#include "office/embedded/text/Story.h"

#include <vector>

namespace mergeloom::embedded {

/// Reads the elements of a story into its items, in order. Elements that are not part of the text
/// (properties, comment ranges, proofing marks, unknown extensions) make no items and stay as they are. So do
/// marks of bookmarks without a counterpart in the story, or with a name that another bookmark already has.
class StoryReader {
  public:
    StoryReader(Story& story, BookmarkTable& bookmarks)
        : story_(story), names_(story.names()), bookmarks_(bookmarks) {}

    void read();

  private:
    void readChildren(pugi::xml_node container);
    void readElement(pugi::xml_node node);
    void readRun(pugi::xml_node run);
    void readRunChild(pugi::xml_node node);
    void readText(pugi::xml_node node, ItemKind kind);
    void readFieldCharacter(pugi::xml_node node);
    void readSimpleField(pugi::xml_node node);
    void readDrawing(pugi::xml_node runChild, pugi::xml_node drawing);
    void collectTextBoxes(pugi::xml_node node);
    void add(ItemKind kind, pugi::xml_node node, CharacterCount length = {1});
    /// Appends a paragraph when the story does not end with one, as is now and then so in documents of other
    /// programs.
    void endWithParagraph();
    void pairMarks();
    void listBookmark(Item* start, Item* end);
    void collectCopies(pugi::xml_node fallback);

    Story& story_;
    const opc::WordNames& names_;
    BookmarkTable& bookmarks_;
    std::vector<Item*> items_;
};

}  // namespace mergeloom::embedded
