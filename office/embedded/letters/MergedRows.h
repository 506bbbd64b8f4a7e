#pragma once

#include "office/opc/WordNames.h"

#include <cstddef>
#include <pugixml.hpp>
#include <vector>

namespace mergeloom::embedded {

/// Returns the number of the last row that belongs to rows from the first to the last given one: rows after
/// them that continue a vertical merge which starts in them belong to them.
std::size_t lastMergedRow(const std::vector<pugi::xml_node>& rows, std::size_t first, std::size_t last,
                          const opc::WordNames& names);

}  // namespace mergeloom::embedded
