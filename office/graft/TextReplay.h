#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/graft/PictureTransfer.h"
#include "office/graft/StoryDifference.h"
#include "office/graft/StoryLines.h"
#include "office/graft/WordExport.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// Repeats the user's changes of text, with new tables and rows, on a story of the original. Applies the
/// edits from the last to the first, so that the positions of earlier ones stay valid. Raises Refusal for a
/// change without a rule, and the errors of the engine.
class TextReplay {
  public:
    TextReplay(embedded::WordContent& content, embedded::Story& original, const ReadStory& baseline,
               const ReadStory& edited, PictureTransfer& pictures);

    void repeat(const std::vector<TextEdit>& edits);

  private:
    /// New text with kObject in place of each picture, and the runs of the pictures.
    struct NewText {
        std::string text;
        std::vector<pugi::xml_node> pictures;
    };
    /// New lines of the present story that are before a former line.
    struct InsertedLines {
        std::size_t before = 0;
        std::size_t start = 0;
        std::size_t end = 0;
    };

    void repeat(const TextEdit& edit);
    bool repeatApart(const TextEdit& edit);
    /// Returns the position of the erased text.
    CharacterPosition erase(const TextEdit& edit);
    void insert(const TextEdit& edit);
    void insertInLine(const TextEdit& edit);
    [[nodiscard]] NewText textOf(LinePlace start, LinePlace end) const;
    static void appendTo(NewText& text, const Line& line, std::size_t start, std::size_t end);
    [[nodiscard]] bool hasStructure(const TextEdit& edit) const;
    [[nodiscard]] std::optional<InsertedLines> wholeLinesOf(const TextEdit& edit) const;
    void insertLines(const InsertedLines& lines);
    void insertParagraphs(const InsertedLines& lines, bool isFirst);
    [[nodiscard]] CharacterPosition placeOfTable(const InsertedLines& lines, bool hasNewLineAfter) const;
    void insertTable(CharacterPosition position, std::size_t start, std::size_t end);
    void appendRows(const InsertedLines& lines);
    void fillCells(const embedded::Item* firstItem, std::size_t start, std::size_t end);
    void replace(CharacterPosition start, CharacterPosition end, const NewText& text);

    [[nodiscard]] const Line& partner(std::size_t formerLine) const;
    [[nodiscard]] bool hasPartner(std::size_t formerLine) const;
    [[nodiscard]] bool looksAlike(std::size_t nowLine, std::size_t otherNowLine) const;
    [[nodiscard]] bool endsSection(const Line& line) const;
    [[nodiscard]] int depthAfter(std::size_t nowLine) const;
    [[noreturn]] void refuse(const std::string& reason, std::size_t nowLine) const;

    embedded::WordContent& content_;
    embedded::Story& story_;
    const ReadStory& baseline_;
    const ReadStory& edited_;
    PictureTransfer& pictures_;
    std::vector<Line> lines_;
    std::vector<std::size_t> partners_;  ///< for each line of the baseline, its index in the original
};

}  // namespace mergeloom::graft
