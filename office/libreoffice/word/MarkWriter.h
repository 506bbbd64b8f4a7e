#pragma once

#include "office/libreoffice/word/Needle.h"
#include "office/libreoffice/word/WriterModel.h"
#include "office/libreoffice/word/WriterStory.h"

namespace mergeloom::libreoffice {

/// Puts bookmarks into Writer's texts and takes them out.
class MarkWriter {
  public:
    explicit MarkWriter(Needle& needle) : needle_(needle) {}

    /// Writer has no bookmarks that begin and end in different texts, but for those over cells of a table.
    [[nodiscard]] static bool canPut(const MarkRecord& mark);
    /// Raises kCommandFailed for a bookmark that Writer cannot have.
    static void check(const MarkRecord& mark);
    /// Raises what check does.
    void put(const WriterModel& model, MarkRecord& mark);
    /// Does nothing where Writer has dropped it already.
    static void take(const WriterModel& model, const MarkRecord& mark);
    /// Whether Writer has the bookmark where it belongs.
    [[nodiscard]] static bool isInPlace(const MarkRecord& mark);

  private:
    void putOverCells(WriterStory& story, const TextPlace& from, const TextPlace& to,
                      const Reference<css::text::XTextContent>& bookmark);

    Needle& needle_;
};

}  // namespace mergeloom::libreoffice
