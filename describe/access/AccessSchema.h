#pragma once

#include "describe/Database.h"
#include "describe/StoredForm.h"
#include "describe/access/AccessFile.h"

#include <string>
#include <vector>

namespace mergeloom::describe::access {

/// The tables, select queries and forms of a database file, and sentences about objects that cannot be
/// described.
struct AccessSchema {
    std::vector<Table> tables{};
    std::vector<StoredForm> forms{};
    std::vector<std::string> remarks{};
};

/// Raises kFileCouldNotBeRead.
AccessSchema readSchema(const AccessFile& file);

}  // namespace mergeloom::describe::access
