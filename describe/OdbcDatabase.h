#pragma once

#include "describe/Database.h"
#include "describe/OdbcSource.h"

#include <memory>
#include <string>

namespace mergeloom::describe {

/// Connects to the database that a source of ODBC names. The password is that of the data source, of the
/// environment variable MERGELOOM_ODBC_PASSWORD or, if the driver wants one, of the user. Raises
/// kFileCouldNotBeRead with a sentence that names the source, and kOptionNotUnderstood for one that has a
/// password.
std::unique_ptr<Database> openOdbc(const std::string& source, const PasswordPrompt& askPassword);

}  // namespace mergeloom::describe
