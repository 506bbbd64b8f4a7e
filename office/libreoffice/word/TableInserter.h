#pragma once

#include "office/libreoffice/word/WriterContent.h"

namespace mergeloom::libreoffice {

/// Puts new tables into a document, and new rows into tables.
class TableInserter {
  public:
    explicit TableInserter(WriterContent& content) : content_(content) {}

    /// A table with a visible grid, as wide as the text area, before the paragraph that the position stands
    /// in; one that has text before the position is split there.
    TablePtr insert(WriterStory& story, CharacterPosition position, int rows, int columns);
    /// An empty row like the last one, behind it.
    void appendRow(WriterStory& story, MappedTable& table);

  private:
    WriterContent& content_;
};

}  // namespace mergeloom::libreoffice
