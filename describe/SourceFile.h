#pragma once

#include "describe/Database.h"

#include <memory>
#include <string>

namespace mergeloom::describe {

/// Opens the database that a user names: a file of SQLite or Access. Raises kFileCouldNotBeRead with a
/// sentence that names the source if it is missing, empty, or of no known kind.
std::unique_ptr<Database> openSource(const std::string& source);

}  // namespace mergeloom::describe
