#pragma once

#include "office/embedded/sheet/UndoLog.h"
#include "office/model/excel/CellAddress.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// How a cell says what it holds (ST_CellType, ECMA-376 Part 1, 18.18.11).
enum class CellType { Empty, Number, SharedText, InlineText, FormulaText, Boolean, Error, Date };

/// A cell as its sheet stores it.
struct StoredCell {
    CellType type = CellType::Empty;
    std::string value{};  ///< as written: a number, the index of a shared text, or the text itself
    int style = 0;        ///< index into the cell formats of the workbook
    std::string formula{};
    /// The cells of the array formula or data table that the cell belongs to.
    std::optional<excel::CellArea> arrayArea{};
};

/// A row whose height is its own.
struct StoredRowHeight {
    int row = 0;
    double points = 0;  ///< 0 for a hidden row
};

/// The part of one worksheet (ECMA-376 Part 1, 18.3). Its bytes stay as they were read, next to an index of
/// where its rows begin; there is no tree of it. Edits are kept beside the bytes and go into them when the
/// part is written, so that whatever stands outside of an edit is the same byte for byte.
class SheetPart {
  public:
    /// Raises kFileCouldNotBeRead, with a sentence that names the file and the part, for a part that is not
    /// well-formed, carries a document type, is no worksheet, or holds its rows or cells out of order. The
    /// log must outlive the part.
    SheetPart(std::string xml, const std::string& partName, const std::string& fileName, UndoLog& undo);
    SheetPart(const SheetPart&) = delete;
    SheetPart& operator=(const SheetPart&) = delete;
    ~SheetPart();

    [[nodiscard]] const std::string& partName() const;
    /// Whether the part uses the namespace of the strict conformance class.
    [[nodiscard]] bool isStrict() const;
    /// The name of an element as this part writes it: "x:row" where the namespace has a prefix.
    [[nodiscard]] std::string elementName(std::string_view localName) const;

    /// The XML of a child of the root, such as "sheetViews", as it stands now; empty when there is none. All
    /// children of that name one after the other ("conditionalFormatting" may stand several times). Not for
    /// sheetData, which has members of its own.
    [[nodiscard]] std::string section(std::string_view localName) const;
    /// Replaces all children of that name, or puts them in where the schema has their place (ECMA-376 Part 1,
    /// A.2, CT_Worksheet); an empty text takes them out. Namespaces that the root declares may be used.
    void setSection(std::string_view localName, std::string xml);
    /// Declares a namespace on the root, unless it is declared there, and answers its prefix.
    std::string declareNamespace(std::string_view preferredPrefix, std::string_view uri);

    [[nodiscard]] StoredCell cell(const excel::CellPosition& position) const;
    /// Makes the cell hold a text of its own (an inline string). It keeps its format; a new cell takes that
    /// of its row, else that of its column. Whoever writes over a formula sees to the calculation chain; a
    /// shared formula that other cells refer to moves on to the first of them.
    void setText(const excel::CellPosition& position, const std::string& text);

    /// The smallest area that holds all cells; nothing in a sheet without any.
    [[nodiscard]] std::optional<excel::CellArea> usedArea() const;

    /// The rows that have a height of their own or are hidden, in order.
    void forEachRowHeight(const std::function<void(const StoredRowHeight&)>& visit) const;
    /// Gives a row a height that stays (customHeight); a hidden row shows again.
    void setRowHeight(int row, double points);

    [[nodiscard]] bool isDirty() const;
    /// The part as it is written.
    [[nodiscard]] std::string toXml() const;

  private:
    class Data;
    std::unique_ptr<Data> data_;
};

}  // namespace mergeloom::embedded
