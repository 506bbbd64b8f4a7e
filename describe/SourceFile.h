#pragma once

#include "describe/Database.h"
#include "describe/OdbcSource.h"

#include <memory>
#include <string>

namespace mergeloom::describe {

/// Opens the database that a user names: a file of SQLite or Access, or a source of ODBC, whose password the
/// user may be asked for. Raises kFileCouldNotBeRead with a sentence that names the source if it is missing,
/// empty, or of no known kind.
std::unique_ptr<Database> openSource(const std::string& source, const PasswordPrompt& askPassword);

/// Returns the name of a source's database for users: "shop" for "/srv/shop.db" and "odbc:DSN=shop".
std::string databaseNameOf(const std::string& source);

}  // namespace mergeloom::describe
