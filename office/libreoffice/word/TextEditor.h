#pragma once

#include "office/libreoffice/word/WriterContent.h"

#include <string>

namespace mergeloom::libreoffice {

/// Changes the text of a document with Word's habits: what bookmarks do is told in Range::SetText.
class TextEditor {
  public:
    explicit TextEditor(WriterContent& content) : content_(content) {}

    /// Returns the length of what stands in the stretch's place then.
    CharacterCount replace(WriterStory& story, Stretch stretch, const std::string& text);
    /// The same with a picture of that size, in hundredths of a millimetre.
    CharacterCount replaceByPicture(WriterStory& story, Stretch stretch, const std::string& fileName);
    void removeTable(WriterStory& story, const TablePtr& table);
    CharacterCount insert(WriterStory& story, CharacterPosition position, const std::string& text);

  private:
    [[nodiscard]] Stretch withoutLastMark(WriterStory& story, Stretch stretch);
    void remove(WriterStory& story, Stretch stretch);
    void removeWithinText(WriterStory& story, Stretch stretch);
    [[nodiscard]] std::vector<MarkPtr> startingBehind(WriterStory& story, Stretch stretch);
    void keepBehind(const std::vector<MarkPtr>& marks, CharacterPosition start, CharacterCount inserted);
    void insertPageBreak(WriterStory& story, CharacterPosition position);
    [[nodiscard]] bool beginsWithCharacter(WriterStory& story, Stretch stretch);

    WriterContent& content_;
};

}  // namespace mergeloom::libreoffice
