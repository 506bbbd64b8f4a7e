#pragma once

#include "base/Record.h"
#include "office/embedded/letters/LetterParts.h"
#include "office/embedded/letters/PartCutter.h"
#include "office/embedded/letters/Piece.h"

#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace mergeloom::embedded {

enum class IsLastSection { No, Yes };

/// The least distance of the ids of a note in two sections.
inline constexpr std::int64_t kNotesOfSection = 1000;

/// Writes a part's pieces with the values of records.
class LetterRenderer {
  public:
    LetterRenderer(const MarkedPlaces& marked, const letters::LetterSettings& settings, const FreeIds& ids,
                   LetterParts& parts)
        : marked_(marked), settings_(settings), ids_(ids), freshIds_(ids), parts_(parts) {}

    /// Begins a letter, whose ids may be those of another letter.
    void beginLetter();
    /// Appends the XML of pieces of a part. Of several records the first one is the letter's own; a table may
    /// list all.
    void render(CutPart& part, Pieces& pieces, std::span<const Record> records, std::string& xml);
    /// Begins the section of another record. Those after the first one leave out what may stand once in a
    /// document only.
    void beginSection(std::int64_t number, IsLastSection isLast);
    /// Sets the relationship by which the section reaches its own copy of a header or footer.
    void setLink(const std::string& id, const std::string& idOfCopy) { links_[id] = idOfCopy; }

    [[nodiscard]] const std::set<std::string>& remarks() const { return remarks_; }

  private:
    void append(Pieces& pieces);
    void appendValue(Piece& piece);
    /// Appends rich text, or its plain text when it is broken.
    void appendRich(const RecordControl& control, const PlaceFormat& format);
    void appendLabel(Piece& piece);
    void appendOptional(Piece& piece);
    void appendPicture(Piece& piece);
    /// Returns the picture of a record; null when there is none, which is remarked.
    const LetterPicture* pictureOf(Piece& piece);
    void appendRows(Piece& piece);
    /// Appends the mark before rows that are added to the pattern rows; returns its id.
    std::string appendAddedRowsStart();
    [[nodiscard]] const std::string& linkOf(const std::string& id) const;
    [[nodiscard]] const RecordControl* controlOf(Piece& piece) const;
    [[nodiscard]] std::span<const Record> recordsOf(Piece& piece) const;
    [[nodiscard]] bool isEmpty(Piece& piece) const;
    [[nodiscard]] bool keepsTable(Piece& piece) const;

    const MarkedPlaces& marked_;
    const letters::LetterSettings& settings_;
    FreeIds ids_;
    FreeIds freshIds_;
    LetterParts& parts_;
    CutPart* part_ = nullptr;
    std::string* xml_ = nullptr;
    std::span<const Record> records_;
    std::vector<const Record*> levels_;
    bool isFirst_ = true;  ///< in the first repetition of everything around
    bool isLast_ = true;
    std::int64_t section_ = 0;
    std::map<std::string, std::string> links_;
    std::int64_t addedRows_ = 0;
    std::set<std::string> remarks_;
};

}  // namespace mergeloom::embedded
