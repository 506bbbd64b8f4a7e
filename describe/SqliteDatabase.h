#pragma once

#include "describe/Database.h"

#include <memory>
#include <string>

namespace mergeloom::describe {

/// Opens a file of SQLite. Raises kFileCouldNotBeRead with a sentence that names the file if it is damaged,
/// encrypted or locked.
std::unique_ptr<Database> openSqlite(const std::string& path);

}  // namespace mergeloom::describe
