#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// One end of a reference as it is written: a cell, a whole column or a whole row. The missing part is 0.
struct Corner {
    int column = 0;
    int row = 0;
    bool columnStays = false;
    bool rowStays = false;

    [[nodiscard]] bool isCell() const { return column > 0 && row > 0; }
    [[nodiscard]] bool isSameKind(const Corner& other) const {
        return (column > 0) == (other.column > 0) && (row > 0) == (other.row > 0);
    }
    /// Returns the corner as it is written.
    [[nodiscard]] std::string text() const;
};

/// A reference to cells.
struct FormulaReference {
    Corner first{};
    std::optional<Corner> last{};  ///< of an area
    std::string sheet{};           ///< empty for the formula's own sheet
    /// True for cells of another workbook or of several sheets at once.
    bool isForeign = false;
    /// True for a whole argument of a function that works on all cells of an area, such as SUM.
    bool isSummed = false;
};

/// Reads a formula (ECMA-376 Part 1, 18.17.2) piece by piece: references to cells and the text between them.
/// The formula must outlive the reader.
class FormulaReader {
  public:
    explicit FormulaReader(std::string_view formula) : formula_(formula) {}

    /// Moves to the next piece. Returns false after the last one.
    bool next();
    /// Returns the piece as it is written.
    [[nodiscard]] std::string_view text() const { return formula_.substr(begin_, end_ - begin_); }
    /// Returns the reference; null for other text. The name of its sheet is a piece before it.
    [[nodiscard]] const FormulaReference* reference() const { return reference_ ? &*reference_ : nullptr; }

  private:
    [[nodiscard]] std::string_view rest() const { return formula_.substr(begin_); }
    [[nodiscard]] std::size_t pieceSize();
    [[nodiscard]] std::size_t quotedSize(char quote);
    [[nodiscard]] std::size_t bracketSize() const;
    [[nodiscard]] std::size_t errorSize() const;
    [[nodiscard]] std::size_t signSize();
    [[nodiscard]] std::size_t wordSizeAt(std::size_t offset) const;
    [[nodiscard]] std::optional<Corner> cornerAt(std::size_t offset) const;
    std::size_t takeWord();
    std::size_t takeReference(const Corner& first, std::optional<Corner> last, std::size_t size);
    void takeSheet(std::size_t begin, std::size_t end);
    [[nodiscard]] std::size_t quotedNameBegin() const;
    [[nodiscard]] bool isWholeArgument(std::size_t end) const;

    std::string_view formula_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::optional<FormulaReference> reference_;
    /// The sheet that the text before names, and where that name begins.
    FormulaReference qualifier_;
    std::size_t qualifierBegin_ = 0;
    std::size_t qualifierEnd_ = 0;
    std::string_view word_;                    ///< the word before, which may be that of a function
    std::vector<std::string_view> functions_;  ///< those around the piece, the innermost last
};

}  // namespace mergeloom::embedded
