#pragma once

#include "describe/access/AccessSchema.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom::describe::access {

/// A query of the catalog.
struct QueryEntry {
    std::int64_t id = 0;
    std::int64_t flags = 0;
    std::string name{};
};

/// Adds the select queries to the schema, as views with the columns that their definitions name, and
/// sentences about queries of other kinds. Raises kFileCouldNotBeRead.
void describeQueries(const AccessFile& file, const std::vector<QueryEntry>& queries, AccessSchema& schema);

}  // namespace mergeloom::describe::access
