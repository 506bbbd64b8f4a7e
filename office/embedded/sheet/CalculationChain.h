#pragma once

#include "office/embedded/sheet/UndoLog.h"
#include "office/model/excel/CellAddress.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <cstdint>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <unordered_map>

namespace mergeloom::embedded {

/// The calculation chain (ECMA-376 Part 1, 18.6): the cells with formulas in the order in which they were
/// last calculated. If it lists a cell without a formula, Excel reports the workbook as damaged. It is read
/// when the first cell is removed.
class CalculationChain {
  public:
    /// Package and log must outlive the chain.
    CalculationChain(opc::Package& package, std::string workbookPart, UndoLog& undo);

    /// Removes a cell from the chain. The sheet is identified by the sheetId that the workbook lists. The
    /// part of a chain that becomes empty is removed from the package. Raises kFileCouldNotBeRead if the
    /// chain is malformed.
    void remove(int sheetId, const excel::CellPosition& cell);
    /// Removes all cells, so that Excel rebuilds the chain. Needed after a cell got a formula. Raises the
    /// errors of remove.
    void clear();
    /// Writes the edited part into the package.
    void store();

  private:
    using CellKey = std::uint64_t;

    void load();
    void readEntries();
    void removeEntry(CellKey key, pugi::xml_node entry);
    void put();
    void drop();

    opc::Package& package_;
    std::string workbookPart_;
    PartState state_;
    bool loaded_ = false;
    std::unique_ptr<opc::XmlPart> part_;  ///< null if the workbook has no chain
    std::string contentType_;
    std::string relationshipType_;
    std::unordered_multimap<CellKey, pugi::xml_node> entries_;
};

}  // namespace mergeloom::embedded
