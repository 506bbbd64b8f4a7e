#pragma once

#include "office/embedded/text/EditJournal.h"
#include "office/embedded/text/Story.h"

#include <set>

namespace mergeloom::embedded {

/// Keeps the branches true that stand beside edited text for programs that cannot show it (ECMA-376 Part 3,
/// 10.2). The engine reads and edits the first choice; what the others repeat of it would be out of date.
class Fallbacks {
  public:
    explicit Fallbacks(EditJournal& journal) : journal_(journal) {}

    /// Says that the text at a place is about to be replaced. Other branches beside it go.
    void noteEdit(Story& story, CharacterPosition place);
    /// Lets the other branches of text boxes whose text was replaced repeat it as it is now, without the
    /// bookmarks, whose names and ids are taken. To be called before a part is written.
    void renew(const opc::XmlPart& part);

  private:
    EditJournal& journal_;
    std::set<Story*> editedTextBoxes_;
};

}  // namespace mergeloom::embedded
