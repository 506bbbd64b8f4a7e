#pragma once

#include "office/libreoffice/word/MarkTable.h"
#include "office/libreoffice/word/WriterModel.h"
#include "office/libreoffice/word/WriterStory.h"

#include <deque>
#include <string>

namespace mergeloom::libreoffice {

/// A place in a story, as found for a range of Writer's.
struct StoryPosition {
    WriterStory* story = nullptr;
    CharacterPosition position;
};

/// One of Writer's texts, and the story that it belongs to.
struct FoundText {
    WriterStory* story = nullptr;
    TextKey key;
};

/// Finds out what a document of Writer's holds: its stories with their tables, and its bookmarks.
class ContentReader {
  public:
    ContentReader(const WriterModel& model, std::deque<WriterStory>& stories)
        : model_(model), stories_(stories) {}

    /// Reads the body and all tables; other stories follow when something is found in them.
    void readTables();
    void readMarks(MarkTable& marks);
    /// Where the range starts.
    StoryPosition positionOf(const Reference<css::text::XTextRange>& range);

  private:
    bool placeTable(const std::string& name);
    [[nodiscard]] RangeReference placeBehind(const Reference<css::text::XTextTable>& table);
    void readMark(MarkTable& marks, const std::string& name);
    FoundText textOf(const Reference<css::text::XTextRange>& range);
    FoundText cellOf(const std::string& table, const std::string& cell);
    WriterStory& storyOf(const TextReference& text);

    const WriterModel& model_;
    std::deque<WriterStory>& stories_;
};

}  // namespace mergeloom::libreoffice
