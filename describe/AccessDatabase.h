#pragma once

#include "describe/Database.h"

#include <memory>
#include <string>

namespace mergeloom::describe {

/// Opens a database file of Access 97 to 2019, which another process reads. Raises kFileCouldNotBeRead with a
/// sentence that names the file if it is damaged or encrypted, and kNotAvailable if that process cannot run.
std::unique_ptr<Database> openAccess(const std::string& path);

}  // namespace mergeloom::describe
