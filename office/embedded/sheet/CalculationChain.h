#pragma once

#include "office/embedded/sheet/PartState.h"
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
/// calculated last. A chain that lists a cell without a formula makes Excel call the workbook damaged. It is
/// read when a cell is taken out first.
class CalculationChain {
  public:
    /// Package and log must outlive the chain.
    CalculationChain(opc::Package& package, std::string workbookPart, UndoLog& undo);

    /// Takes a cell out of the chain; the number of its sheet is the sheetId that the workbook lists. A chain
    /// that becomes empty goes from the package. Raises kFileCouldNotBeRead when the chain is malformed.
    void remove(int sheetId, const excel::CellPosition& cell);
    /// Hands the edited part to the package.
    void store();

  private:
    using CellKey = std::uint64_t;

    void load();
    void readEntries();
    void takeOut(CellKey key, pugi::xml_node entry);
    void put();
    void drop();

    opc::Package& package_;
    std::string workbookPart_;
    PartState state_;
    bool loaded_ = false;
    std::unique_ptr<opc::XmlPart> part_;  ///< none where the workbook has no chain
    std::string contentType_;
    std::string relationshipType_;
    std::unordered_multimap<CellKey, pugi::xml_node> entries_;
};

}  // namespace mergeloom::embedded
