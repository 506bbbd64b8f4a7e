#pragma once

#include "base/Record.h"
#include "office/embedded/letters/LetterParts.h"
#include "office/embedded/letters/ListRestarts.h"
#include "office/embedded/letters/PartCutter.h"
#include "office/embedded/letters/Piece.h"
#include "office/embedded/parts/RichText.h"

#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace mergeloom::embedded {

enum class IsLastSection { No, Yes };

/// The minimum difference between the ids of a note in two sections.
inline constexpr std::int64_t kNotesOfSection = 1000;

/// Renders the pieces of parts with the values of records.
class LetterRenderer {
  public:
    LetterRenderer(const MarkedPlaces& marked, const letters::LetterSettings& settings, const FreeIds& ids,
                   LetterParts& parts, ListRestarts& lists)
        : marked_(marked), settings_(settings), ids_(ids), freshIds_(ids), parts_(parts), lists_(lists) {}

    /// Starts a letter. Ids only have to be unique within a letter.
    void beginLetter();
    /// Appends the XML of pieces of a part. Places take the values of the first record; a table may list all
    /// records.
    void render(CutPart& part, Pieces& pieces, std::span<const Record> records, std::string& xml);
    /// Starts the section of another record. Sections after the first one omit content that may occur only
    /// once in a document.
    void beginSection(std::int64_t number, IsLastSection isLast);
    /// Sets the relationship to the section's own copy of a header or footer.
    void setLink(const std::string& id, const std::string& idOfCopy) { links_[id] = idOfCopy; }

    [[nodiscard]] const std::set<std::string>& remarks() const { return remarks_; }

  private:
    void append(Pieces& pieces);
    std::string rendered(Pieces& pieces);
    void appendValue(Piece& piece);
    /// Appends rich text, or its plain text if the markup is malformed.
    void appendRich(const RecordControl& control, PlaceFormat& format);
    void appendParagraphs(const std::vector<RichParagraph>& paragraphs, PlaceFormat& format);
    void appendParagraphSection(Piece& piece);
    std::string takeParagraphSection();
    void appendLabel(Piece& piece);
    void appendOptional(Piece& piece);
    void appendOmitted(const Piece& piece);
    void appendPicture(Piece& piece);
    bool appendNewPicture(Piece& piece);
    /// Returns the picture of a record; null and a remark if there is none.
    const AddedPicture* pictureOf(Piece& piece);
    /// Appends a table, unless it would have no rows.
    void appendTable(Piece& piece);
    void appendRows(Piece& piece);
    /// Appends the start of a hidden bookmark that marks added content; returns its id.
    std::string appendAddedStart(const char* name, std::size_t number);
    void appendEnd(const std::string& id);
    void appendRecordMark();
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
    ListRestarts& lists_;
    CutPart* part_ = nullptr;
    std::string* xml_ = nullptr;
    std::span<const Record> records_;
    std::vector<const Record*> levels_;
    bool isFirst_ = true;  ///< in the first repetition of all enclosing pieces
    bool isLast_ = true;
    std::int64_t section_ = 0;
    std::map<std::string, std::string> links_;
    std::size_t addedRows_ = 0;
    std::int64_t markedRecords_ = 0;
    // The last section's properties inside of a paragraph, as positions in the XML.
    std::size_t sectionStart_ = 0;
    std::size_t sectionEnd_ = 0;
    std::set<std::string> remarks_;
};

}  // namespace mergeloom::embedded
