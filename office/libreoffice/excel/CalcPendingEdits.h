#pragma once

#include "office/libreoffice/excel/CalcUndo.h"
#include "office/model/excel/CellAddress.h"

#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Pending changes of the document: texts of cells and names for single cells. They are collected until
/// something that may depend on them is queried, or the document is saved, and then written in few calls. A
/// call for each place would take most of a mapping's time, and Calc traverses all names for each one that is
/// added.
class CalcPendingEdits {
  public:
    CalcPendingEdits(OfficeConnection& connection, CalcUndo& undo) : connection_(connection), undo_(undo) {}
    CalcPendingEdits(const CalcPendingEdits&) = delete;
    CalcPendingEdits& operator=(const CalcPendingEdits&) = delete;

    /// Sets the document's sheets in their order, and the names of the workbook.
    void addSheet(const Reference<css::sheet::XSpreadsheet>& cells, const std::string& name);
    void setNames(const Reference<css::sheet::XNamedRanges>& names) { names_ = names; }

    /// Sets the text of a cell that may be written. A recorded step can undo it.
    void setText(std::size_t sheet, const excel::CellPosition& cell, const std::string& text);
    /// Returns true if a name may be pending: Calc must be certain to accept it unchanged.
    [[nodiscard]] static bool canWait(const std::string& name);
    /// Adds a name for a cell; it must be free and canWait() true. A recorded step can undo it.
    void addName(std::size_t sheet, const excel::CellPosition& cell, const std::string& name);

    /// Writes all pending changes. This is not a change of its own: steps can be undone afterwards as before.
    void flush();

  private:
    struct Name {
        excel::CellPosition cell;
        std::string name;
    };
    using Texts = std::map<excel::CellPosition, std::string>;
    struct Sheet {
        Reference<css::sheet::XSpreadsheet> cells;
        std::string name;
        Texts texts;
        std::vector<Name> names;
    };

    void recordFormer(std::size_t index, const Texts& texts);
    void defineNames(std::size_t index, std::vector<Name> names, const Texts& texts);
    void defineBesideTitles(std::size_t index, const std::vector<Name>& names);
    void defineOne(std::size_t index, const Name& name);
    void recordDefined(std::size_t index, const Name& name);

    OfficeConnection& connection_;
    CalcUndo& undo_;
    Reference<css::sheet::XNamedRanges> names_;
    std::vector<Sheet> sheets_;
    std::size_t waiting_ = 0;  ///< an upper limit of the number of pending changes
};

}  // namespace mergeloom::libreoffice
