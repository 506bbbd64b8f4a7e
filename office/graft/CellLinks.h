#pragma once

#include "office/embedded/excel/WorkbookContent.h"

#include <cstddef>
#include <map>
#include <string>

namespace mergeloom::graft {

/// The target of a link of cells (CT_Hyperlink, ECMA-376 Part 1, 18.3.1.47).
struct CellLink {
    std::string address{};   ///< outside of the workbook; may be empty
    std::string location{};  ///< in the workbook, or in the file at the address; may be empty

    friend bool operator==(const CellLink&, const CellLink&) = default;
};

/// The links of a sheet by their areas, as they are written.
using CellLinks = std::map<std::string, CellLink>;

/// Repeats the links that the user set, changed and removed on a sheet of the original. The others stay, with
/// their tips. Raises Refusal where the original has one link for more cells than the export.
void repeatLinks(embedded::WorkbookContent& original, std::size_t sheet, const CellLinks& former,
                 const CellLinks& now);

}  // namespace mergeloom::graft
