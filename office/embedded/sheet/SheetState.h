#pragma once

#include "office/embedded/sheet/CellEdits.h"
#include "office/embedded/sheet/SheetCells.h"
#include "office/embedded/sheet/SheetIndex.h"
#include "office/embedded/sheet/SheetRoot.h"
#include "office/embedded/sheet/SheetSections.h"

#include <string>
#include <utility>

namespace mergeloom::embedded {

/// A worksheet's part as it was read, and what was changed since.
struct SheetState {
    /// Raises BadXml for a part that cannot be read.
    explicit SheetState(std::string bytes)
        : xml(std::move(bytes)), index(indexSheet(xml)), root(index.rootTag.of(xml)) {}
    SheetState(const SheetState&) = delete;
    SheetState& operator=(const SheetState&) = delete;

    std::string xml;
    SheetIndex index;
    SheetRoot root;
    SheetSections sections{xml, index};
    CellEdits edits;
    SheetCells cells{xml, index, edits};
};

}  // namespace mergeloom::embedded
