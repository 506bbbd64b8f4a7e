#pragma once

#include "office/embedded/text/EditJournal.h"
#include "office/embedded/text/Story.h"

#include <set>

namespace mergeloom::embedded {

/// Updates the alternative branches beside edited text, for programs that cannot show the first one (ECMA-376
/// Part 3, 10.2). The engine reads and edits only the first one.
class Fallbacks {
  public:
    explicit Fallbacks(EditJournal& journal) : journal_(journal) {}

    /// Notes that the text at a position is about to be replaced; removes the other branches beside it.
    void noteEdit(Story& story, CharacterPosition place);
    /// Copies the text of edited text boxes to their other branches, without the bookmarks, whose names and
    /// ids must be unique. Must be called before a part is written.
    void update(const opc::XmlPart& part);

  private:
    EditJournal& journal_;
    std::set<Story*> editedTextBoxes_;
};

}  // namespace mergeloom::embedded
