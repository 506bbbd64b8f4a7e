#pragma once

#include "office/embedded/sheet/UndoLog.h"
#include "office/model/excel/CellAddress.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The type of a cell's content (ST_CellType, ECMA-376 Part 1, 18.18.11).
enum class CellType { Empty, Number, SharedText, InlineText, FormulaText, Boolean, Error, Date };

/// A cell as the sheet's part stores it.
struct StoredCell {
    CellType type = CellType::Empty;
    std::string value{};  ///< as stored: a number, the index of a shared text, or the text itself
    int style = 0;        ///< index into the cell formats of the workbook
    std::string formula{};
    /// The area of the array formula or data table that contains the cell.
    std::optional<excel::CellArea> arrayArea{};
};

/// The elements of a cell's content, as the part writes them, and their type.
struct CellContent {
    std::string type{};  ///< the value of the attribute t (ST_CellType); empty for a number or for no content
    std::string xml{};
};

/// A row with a height of its own.
struct StoredRowHeight {
    int row = 0;
    double points = 0;  ///< 0 for a hidden row
};

/// The part of one worksheet (ECMA-376 Part 1, 18.3). Instead of a tree it keeps the bytes as they were read
/// and an index of its rows. Edits are kept beside the bytes and applied when the part is written, so that
/// everything outside of an edit stays the same byte for byte.
class SheetPart {
  public:
    /// Raises kFileCouldNotBeRead, with a sentence that names the file and the part, if the part is not
    /// well-formed, contains a document type, is not a worksheet, or contains rows or cells out of order. The
    /// log must outlive the part.
    SheetPart(std::string xml, const std::string& partName, const std::string& fileName, UndoLog& undo);
    ~SheetPart();

    [[nodiscard]] const std::string& partName() const;
    /// Returns true if the part uses the namespace of the strict conformance class.
    [[nodiscard]] bool isStrict() const;
    /// Returns the name of an element as this part writes it, such as "x:row" if the namespace has a prefix.
    [[nodiscard]] std::string elementName(std::string_view localName) const;

    /// Returns the current XML of a child of the root, such as "sheetViews"; empty if there is none. All
    /// children of that name are concatenated ("conditionalFormatting" may occur several times). Not for
    /// sheetData, which has members of its own.
    [[nodiscard]] std::string section(std::string_view localName) const;
    /// Replaces all children of that name, or inserts them at their place in the schema (ECMA-376 Part 1,
    /// A.2, CT_Worksheet); an empty text removes them. Namespaces that the root declares may be used.
    void setSection(std::string_view localName, std::string xml);
    /// Declares a namespace on the root, unless it is declared there, and returns its prefix.
    std::string declareNamespace(std::string_view preferredPrefix, std::string_view uri);

    [[nodiscard]] StoredCell cell(const excel::CellPosition& position) const;
    /// Sets the cell's content to a text of its own (an inline string). It keeps its format; a new cell takes
    /// that of its row, else that of its column. When a formula is overwritten, the caller updates the
    /// calculation chain; a shared formula with other members is promoted to the first of them.
    void setText(const excel::CellPosition& position, const std::string& text);
    /// Replaces the cell's content. The caller writes its elements with the names that elementName returns.
    /// Otherwise as setText.
    void setContent(const excel::CellPosition& position, const CellContent& content);
    /// Replaces the stored result of the cell's formula, which stays. Does nothing if the cell has no result.
    void setResult(const excel::CellPosition& position, const CellContent& result);

    /// Returns the index of the cell's format: that of the cell, its row or its column, whichever is defined
    /// first.
    [[nodiscard]] int styleAt(const excel::CellPosition& position) const;
    /// Returns the index of the format of a row's new cells; none if the row has no format of its own.
    [[nodiscard]] std::optional<int> rowStyle(int row) const;
    void setStyle(const excel::CellPosition& position, int style);

    /// Returns the smallest area that contains all cells; nothing if the sheet has none.
    [[nodiscard]] std::optional<excel::CellArea> usedArea() const;

    /// Visits the rows that have a height of their own or are hidden, in order.
    void forEachRowHeight(const std::function<void(const StoredRowHeight&)>& visit) const;
    /// Sets a custom height of a row (customHeight); a hidden row is shown again.
    void setRowHeight(int row, double points);
    /// Sets an attribute of a row (CT_Row, ECMA-376 Part 1, 18.3.1.73), or removes it. The value must not
    /// need escaping.
    void setRowAttribute(int row, const std::string& name, const std::optional<std::string>& value);

    [[nodiscard]] bool isDirty() const;
    /// Returns the part with its edits.
    [[nodiscard]] std::string toXml() const;

  private:
    class Data;
    std::unique_ptr<Data> data_;
};

}  // namespace mergeloom::embedded
