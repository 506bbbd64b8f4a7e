#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// Sources of ODBC, such as "odbc:DSN=shop;UID=clerk".
namespace mergeloom::describe {

/// Asks the user for a password. Returns none if there is nobody to ask.
using PasswordPrompt = std::function<std::optional<std::string>()>;

/// Returns the connection string of a source. Raises kOptionNotUnderstood if it has a password, which other
/// users of the machine could read.
std::string odbcConnectionString(std::string_view source);

/// Returns the name of the database for users: its data source or, for a path, the file's name without
/// extension.
std::string odbcDatabaseName(std::string_view source);

/// Returns a connection string with a password.
std::string withPassword(const std::string& connectionString, const std::string& password);

}  // namespace mergeloom::describe
