#pragma once

#include "describe/Database.h"
#include "describe/OdbcSource.h"

#include <memory>
#include <string>

namespace mergeloom::describe {

/// Connects to the database that a source of ODBC names. The password is read from the data source or from
/// the environment variable MERGELOOM_ODBC_PASSWORD; if neither has one and the driver requires it, the user
/// is asked. Raises kFileCouldNotBeRead with a sentence that names the source, and kOptionNotUnderstood for
/// one that has a password.
std::unique_ptr<Database> openOdbc(const std::string& source, const PasswordPrompt& askPassword);

}  // namespace mergeloom::describe
