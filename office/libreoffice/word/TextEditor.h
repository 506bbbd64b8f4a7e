#pragma once

#include "office/libreoffice/word/WriterContent.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Changes the text of a document with Word's habits: Range::SetText says what bookmarks do.
class TextEditor {
  public:
    explicit TextEditor(WriterContent& content) : content_(content) {}

    /// Replaces what the range covers; it then covers the new text.
    void replace(TrackedRange& range, const std::string& text);

    /// The same with a picture.
    void replaceByPicture(TrackedRange& range, const std::string& fileName);

    /// Removes a table with the bookmarks in it and around it.
    void removeTable(const TextReference& story, const TableReference& table);

  private:
    /// A bookmark that lives through the replacement.
    struct KeptBookmark {
        LiveBookmark bookmark;
        bool startsInside = false;  ///< it has to begin with the new text
        bool isEmpty = false;
        bool endsWithText = false;  ///< and with the mark after that
    };

    void trimMarks(TrackedRange& range);
    std::vector<KeptBookmark> removeCovered(const TrackedRange& range);
    void dissolveFields(TrackedRange& range, bool hasText);
    void removeTables(TrackedRange& range);
    CursorReference emptied(TrackedRange& range);
    CursorReference insertedAfterFirst(TrackedRange& range, const std::string& text);
    CursorReference insert(const TrackedRange& range, const CursorReference& at, const std::string& text);
    void settle(TrackedRange& range, const CursorReference& inserted, const std::vector<KeptBookmark>& kept);
    void keep(const TrackedRange& range, const KeptBookmark& kept);

    WriterContent& content_;
};

}  // namespace mergeloom::libreoffice
