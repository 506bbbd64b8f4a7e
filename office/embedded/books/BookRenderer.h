#pragma once

#include "base/Record.h"
#include "office/embedded/books/BookPiece.h"
#include "office/embedded/books/BookPlaces.h"
#include "office/embedded/books/BookStyles.h"
#include "office/model/letters/LetterTemplate.h"

#include <cstddef>
#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

/// The properties of a workbook that decide how values are stored.
struct BookProperties {
    DateSystem dates = DateSystem::From1900;
    std::vector<std::string> sheetNames{};
    std::vector<int> lastRows{};     ///< the last rows of the sheets that have cells
    std::vector<int> placeStyles{};  ///< the cell formats of the places
    std::vector<NumberFormat> placeFormats{};
    std::string prefix{};  ///< of the elements of the workbook's part
};

/// The heights of pictures, in points, by their places and repetitions.
using PictureHeights = std::map<std::pair<std::size_t, int>, double>;

/// Renders the pieces of a workbook's parts with the values of records.
class BookRenderer {
  public:
    /// All arguments must outlive it. The maps get the numbers of repetitions.
    BookRenderer(BookPlaces& places, const BookProperties& book, const BookStyles& styles,
                 letters::EmptyTables emptyTables)
        : places_(places), book_(book), styles_(styles), emptyTables_(emptyTables) {}

    /// Starts a workbook for records: the first one, and all of them for a table that lists the records
    /// themselves. Raises kNotAvailable if a sheet has too few rows for them.
    void begin(std::span<const Record> records);
    [[nodiscard]] std::string render(const CutBookPart& part);
    /// Sets the heights of the rows whose pictures are new.
    void setHeights(PictureHeights heights) { heights_ = std::move(heights); }

    /// Returns the control of a place in a repetition of its rows, from 0; null if the record has none.
    [[nodiscard]] const RecordControl* controlOf(const BookPlace& place, int copy) const;
    /// Returns the number of repetitions of the rows of a place; 0 for rows that are hidden.
    [[nodiscard]] int copiesOf(const BookPlace& place) const;

    /// Returns true if a date got one of the added formats.
    [[nodiscard]] bool usesDates() const { return usesDates_; }
    [[nodiscard]] const std::set<std::string>& remarks() const { return remarks_; }

  private:
    void appendHeight(const BookPiece& piece);
    void append(const BookPieces& pieces);
    void appendPiece(const BookPiece& piece);
    void appendRowNumber(const BookPiece& piece, int first);
    void appendBreak(int row);
    void appendFormula(std::size_t number);
    void appendAreas(const MovableAreas& areas);
    void appendValue(const BookPiece& piece);
    CellValue valueOf(const RecordControl& control, std::size_t number);
    void appendStyle(int style, CellValue::Kind kind);
    void appendText(const RecordControl& control, const std::string& text);
    void appendRows(const BookPiece& piece);
    void appendMerges();
    void appendNames();
    void appendNamesOfTables();
    void appendName(const std::string& name, std::size_t sheet, int first, int last);
    void appendHidden(std::size_t group);
    [[nodiscard]] bool isEmpty(std::size_t sheet, std::size_t group) const;
    [[nodiscard]] bool removesTables() const { return emptyTables_ == letters::EmptyTables::Remove; }

    BookPlaces& places_;
    const BookProperties& book_;
    const BookStyles& styles_;
    letters::EmptyTables emptyTables_;
    std::span<const Record> records_;
    std::vector<std::span<const Record>> listed_;  ///< the records of the tables
    const CutBookPart* part_ = nullptr;
    std::string xml_;
    std::size_t lastSize_ = 0;
    std::size_t group_ = 0;  ///< the repeated rows that are written
    int copy_ = 0;
    bool usesDates_ = false;
    PictureHeights heights_;
    std::set<std::string> remarks_;
};

}  // namespace mergeloom::embedded
