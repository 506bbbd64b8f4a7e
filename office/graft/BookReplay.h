#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/embedded/sheet/ColumnWidths.h"
#include "office/graft/BookDifference.h"
#include "office/graft/FormatTransfer.h"

#include <cstddef>
#include <map>
#include <string>

namespace mergeloom::graft {

/// Repeats the differences between two exports on the original workbook.
class BookReplay {
  public:
    /// All arguments must outlive this object.
    BookReplay(embedded::WorkbookContent& original, const BookExport& former, const BookExport& now)
        : original_(original), former_(former), now_(now), formats_(original.package()) {}

    /// Returns the index of the original's sheet with that name. Raises Refusal if there is none.
    [[nodiscard]] std::size_t indexOf(const std::string& sheetName) const;

    /// Repeats the differences of one sheet. Raises Refusal.
    void repeat(const ExportedSheet& former, const ExportedSheet& now, const SheetDifference& difference);
    /// Repeats the differences of the defined names. Takes the former names of renamed sheets by their
    /// present ones. Raises Refusal.
    void repeatNames(const std::map<std::string, std::string>& formerSheets);
    /// Writes all parts into the package.
    void store();

  private:
    void repeatContent(std::size_t sheet, const CellChange& change);
    void repeatFormat(std::size_t sheet, const CellChange& change, const ExportedSheet& former,
                      const ExportedSheet& now);
    void repeatRow(std::size_t sheet, const RowChange& change);
    void repeatColumns(std::size_t sheet, const ExportedSheet& now, const SheetDifference& difference);
    void repeatColumns(embedded::ColumnDefinitions& definitions, const ColumnsChange& change,
                       const std::string& sheetName);
    void repeatMerges(std::size_t sheet, const SheetDifference& difference);
    void changeName(const NameKey& key, const std::string* formula);
    [[nodiscard]] int scopeOf(const std::string& sheetName) const;

    embedded::WorkbookContent& original_;
    const BookExport& former_;
    const BookExport& now_;
    FormatTransfer formats_;
};

}  // namespace mergeloom::graft
