#pragma once

#include "describe/Database.h"
#include "describe/access/AccessFile.h"

#include <string>
#include <vector>

namespace mergeloom::describe::access {

/// The tables and select queries of a database file, and sentences about what cannot be described.
struct AccessSchema {
    std::vector<Table> tables{};
    std::vector<std::string> remarks{};
};

/// Raises kFileCouldNotBeRead.
AccessSchema readSchema(const AccessFile& file);

}  // namespace mergeloom::describe::access
