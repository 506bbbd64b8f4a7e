#pragma once

#include "office/libreoffice/word/Needle.h"
#include "office/libreoffice/word/WriterModel.h"
#include "office/libreoffice/word/WriterStory.h"

namespace mergeloom::libreoffice {

/// Puts bookmarks into Writer's texts and takes them out.
class MarkWriter {
  public:
    explicit MarkWriter(Needle& needle) : needle_(needle) {}

    /// Raises kCommandFailed for a stretch that begins and ends in different texts but is none of cells.
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
