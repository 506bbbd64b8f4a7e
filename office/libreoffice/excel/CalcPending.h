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

/// Texts of cells, and names for single cells, that the document is to get. They wait here until something
/// asks the document for what may hang on them, or saves it, and then go over the line in few calls: a call
/// for each place costs a mapping most of its time, and Calc goes through all names with each one added.
class CalcPending {
  public:
    CalcPending(OfficeConnection& connection, CalcUndo& undo) : connection_(connection), undo_(undo) {}
    CalcPending(const CalcPending&) = delete;
    CalcPending& operator=(const CalcPending&) = delete;

    /// The document's sheets in their order, and the names of the workbook.
    void addSheet(const Reference<css::sheet::XSpreadsheet>& cells, const std::string& name);
    void setNames(const Reference<css::sheet::XNamedRanges>& names) { names_ = names; }

    /// The cell takes texts. A recorded step takes it back.
    void setText(std::size_t sheet, const excel::CellPosition& cell, const std::string& text);
    /// Returns whether a name of cells may wait: Calc has to be certain to accept it unchanged.
    [[nodiscard]] static bool mayWait(const std::string& name);
    /// The name may wait and is free. A recorded step takes it back.
    void addName(std::size_t sheet, const excel::CellPosition& cell, const std::string& name);

    /// Hands over what waits. No change of its own: steps can be taken back afterwards as before.
    void settle();

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

    void keepFormer(std::size_t index, const Texts& texts);
    void defineNames(std::size_t index, std::vector<Name> names, const Texts& texts);
    void defineBesideTitles(std::size_t index, const std::vector<Name>& names);
    void defineOne(std::size_t index, const Name& name);
    void keepDefined(std::size_t index, const Name& name);

    OfficeConnection& connection_;
    CalcUndo& undo_;
    Reference<css::sheet::XNamedRanges> names_;
    std::vector<Sheet> sheets_;
    std::size_t waiting_ = 0;  ///< at least as many as wait
};

}  // namespace mergeloom::libreoffice
