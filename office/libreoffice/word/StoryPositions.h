#pragma once

#include "base/Units.h"
#include "office/libreoffice/word/TextPlace.h"

#include <vector>

namespace mergeloom::libreoffice {

/// Numbers the places of a story, for display only. Word counts through all the tables of a story
/// and in UTF-16 code units: each cell's text takes one more for its mark, and each row one more for its own.
/// Writer knows no such numbers, so all paragraphs are gone through.
class StoryPositions {
  public:
    explicit StoryPositions(const TextReference& story);

    [[nodiscard]] CharacterCount length() const { return {at_.value}; }
    [[nodiscard]] CharacterPosition positionOf(const TextPlace& place) const;

    /// The position is one of the story's.
    [[nodiscard]] TextPlace placeOf(CharacterPosition position) const;

  private:
    struct Paragraph {
        CharacterPosition start;
        RangeReference at;
        CharacterCount length;           ///< without its mark
        CharacterPosition afterTable{};  ///< the end of the table whose last paragraph it is
    };

    void readText(const Reference<css::uno::XInterface>& text);
    void readTable(const TableReference& table);
    void readParagraph(const RangeReference& paragraph);
    [[nodiscard]] const Paragraph& paragraphAt(const RangeReference& place) const;

    TextReference story_;
    CharacterPosition at_;
    std::vector<Paragraph> paragraphs_;
};

/// Moves a cursor that selects nothing over as many UTF-16 code units, forwards or backwards.
CursorReference movedBy(const RangeReference& place, CharacterCount units);

}  // namespace mergeloom::libreoffice
