#pragma once

#include "office/embedded/sheet/UndoLog.h"
#include "office/model/excel/CellAddress.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::embedded {

/// The header cells of one table and the names of its columns (ECMA-376 Part 1, 18.5.1.3). A table without a
/// header row has no header cells.
class TableHeader {
  public:
    /// The log must outlive the header.
    TableHeader(std::unique_ptr<opc::XmlPart> part, UndoLog& undo);

    [[nodiscard]] bool contains(const excel::CellPosition& cell) const;
    /// Returns the text that a header cell can get so that the names of all columns differ.
    [[nodiscard]] std::string allowedText(const excel::CellPosition& cell, const std::string& text) const;
    void rename(const excel::CellPosition& cell, const std::string& text);

    [[nodiscard]] const opc::XmlPart& part() const { return *part_; }
    [[nodiscard]] bool isDirty() const { return state_.isDirty(); }
    void setStored() { state_.setStored(); }

  private:
    void readColumns();
    [[nodiscard]] pugi::xml_node columnAt(const excel::CellPosition& cell) const;
    [[nodiscard]] bool isTaken(const std::string& name, pugi::xml_node besides) const;

    std::unique_ptr<opc::XmlPart> part_;
    PartState state_;
    excel::CellPosition first_{};
    std::vector<pugi::xml_node> columns_;
    std::unordered_map<std::string, int> names_;  ///< the number of columns by case-folded name
};

/// The tables (ListObjects) of one sheet (ECMA-376 Part 1, 18.5). A table's part repeats the texts of its
/// header cells; if the two differ, Excel reports the workbook as damaged. The tables are read on first use.
class SheetTables {
  public:
    /// Package and log must outlive this object.
    SheetTables(opc::Package& package, std::string sheetPart, UndoLog& undo);

    /// Returns the text that a cell may get. A header cell gets at most 255 characters of it, with a number
    /// appended if another column of the table has that name already, and "Column1" for an empty text. Any
    /// other cell gets the text itself. Raises kFileCouldNotBeRead if a table is malformed.
    [[nodiscard]] std::string allowedText(const excel::CellPosition& cell, const std::string& text);
    /// Renames the column of a header cell whose text was set.
    void textWasSet(const excel::CellPosition& cell, const std::string& text);
    /// Returns true for a cell in the header of a table.
    [[nodiscard]] bool isHeader(const excel::CellPosition& cell) { return headerAt(cell) != nullptr; }
    /// Writes the edited parts into the package.
    void store();

  private:
    void load();
    /// Returns null if the cell is not in a table's header.
    TableHeader* headerAt(const excel::CellPosition& cell);

    opc::Package& package_;
    std::string sheetPart_;
    UndoLog& undo_;
    bool loaded_ = false;
    std::vector<std::unique_ptr<TableHeader>> headers_;
};

/// The names of all tables of a workbook (displayName, ECMA-376 Part 1, 18.5.1.2). They share a namespace
/// with the defined names of the workbook: if both contain the same name, Excel reports the workbook as
/// damaged. They are read on first use.
class TableNames {
  public:
    /// The package must outlive this object.
    explicit TableNames(const opc::Package& package) : package_(package) {}

    /// Returns true if a table has the name, ignoring case. Raises kFileCouldNotBeRead for a malformed table.
    [[nodiscard]] bool has(const std::string& name);

  private:
    const opc::Package& package_;
    std::optional<std::set<std::string>> names_;  ///< case folded
};

}  // namespace mergeloom::embedded
