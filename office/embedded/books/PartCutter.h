#pragma once

#include "office/embedded/books/BookPiece.h"
#include "office/embedded/sheet/RowMap.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// The sheets of a workbook as the references in its parts refer to them.
struct BookSheets {
    const std::vector<RowMap>& maps;
    MovableFormula::SheetFinder find;
    /// Clauses that say why rows cannot be repeated.
    std::vector<std::string> obstacles{};

    [[nodiscard]] bool hasRepeatedRows() const;
};

/// Cuts the XML of parts of a workbook at the references that move with repeated rows: the attributes ref and
/// sqref, formulas, page breaks, and the rows of drawings and notes.
class BookPartCutter {
  public:
    /// The part and the sheets must outlive it. The part's sheet is that of references without a sheet.
    BookPartCutter(CutBookPart& part, BookSheets& sheets) : part_(part), sheets_(sheets) {}

    /// Appends the pieces of XML with whole elements to those of the part. Raises BadXml.
    void cut(std::string_view xml);
    /// Appends a formula, which is given as an element's content.
    void appendFormula(BookPieces& pieces, std::string_view xml, const FormulaPlace& place);
    /// Appends a list of areas of the part's sheet. With a group, they are repeated with its rows.
    void appendAreas(BookPieces& pieces, std::string_view text, std::optional<std::size_t> group = {});

  private:
    void cutTag(std::string_view name, std::string_view tag, std::string_view attributes);
    void noteElement(std::string_view name, std::string_view attributes);
    [[nodiscard]] bool cutText(std::string_view name, std::string_view text);
    [[nodiscard]] bool cutAttribute(std::string_view element, std::string_view name, std::string_view value);
    [[nodiscard]] bool appendRow(BookPiece::Kind kind, std::string_view number, int first);
    void cutAnchor(std::string_view text);
    [[nodiscard]] const RowMap& map() const { return sheets_.maps[sheet_]; }

    CutBookPart& part_;
    BookSheets& sheets_;
    std::size_t sheet_ = part_.sheet;  ///< of the areas of the element
    FormulaPlace place_{.sheet = part_.sheet};
    bool isInRowBreaks_ = false;
    bool isInSparkline_ = false;
};

}  // namespace mergeloom::embedded
