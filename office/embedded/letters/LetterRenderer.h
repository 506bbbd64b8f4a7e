#pragma once

#include "base/Record.h"
#include "office/embedded/letters/LetterPictures.h"
#include "office/embedded/letters/PartCutter.h"
#include "office/embedded/letters/Piece.h"

#include <cstdint>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// Writes a part's pieces with the values of records.
class LetterRenderer {
  public:
    LetterRenderer(const MarkedPlaces& marked, const letters::LetterSettings& settings, const FreeIds& ids,
                   LetterPictures& pictures)
        : marked_(marked), settings_(settings), ids_(ids), freshIds_(ids), pictures_(pictures) {}

    /// Begins a letter, whose ids may be those of another letter.
    void beginLetter();
    /// Appends the XML of pieces of a part. Of several records the first one is the letter's own; a table may
    /// list all.
    void render(CutPart& part, Pieces& pieces, std::span<const Record> records, std::string& xml);
    /// Sections after the first one repeat what may stand once in a document only.
    void setFirstSection(bool isFirst) { isFirst_ = isFirst; }
    void setLastSection(bool isLast) { isLast_ = isLast; }

    [[nodiscard]] const std::set<std::string>& remarks() const { return remarks_; }

  private:
    void append(Pieces& pieces);
    void appendValue(Piece& piece);
    /// Returns false, and appends nothing, for rich text that is broken.
    bool appendRich(const RecordControl& control, const PlaceFormat& format);
    void appendPicture(Piece& piece);
    /// Returns the picture of a record; null when there is none, which is remarked.
    const LetterPicture* pictureOf(Piece& piece);
    void appendRows(Piece& piece);
    /// Appends the mark before rows that are added to the pattern rows; returns its id.
    std::string appendAddedRowsStart();
    [[nodiscard]] const RecordControl* controlOf(Piece& piece) const;
    [[nodiscard]] std::span<const Record> recordsOf(Piece& piece) const;
    [[nodiscard]] bool isEmpty(Piece& piece) const;
    [[nodiscard]] bool isShown(Piece& piece) const;
    [[nodiscard]] bool keepsTable(Piece& piece) const;

    const MarkedPlaces& marked_;
    const letters::LetterSettings& settings_;
    FreeIds ids_;
    FreeIds freshIds_;
    LetterPictures& pictures_;
    CutPart* part_ = nullptr;
    std::string* xml_ = nullptr;
    std::span<const Record> records_;
    std::vector<const Record*> levels_;
    bool isFirst_ = true;  ///< in the first repetition of everything around
    bool isLast_ = true;
    std::int64_t addedRows_ = 0;
    std::set<std::string> remarks_;
};

}  // namespace mergeloom::embedded
