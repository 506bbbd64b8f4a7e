#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The names of databases of ODBC: a connection string or a data source after "odbc:".
namespace mergeloom {

/// Returns true for a source that names a database of ODBC.
bool isOdbcSource(std::string_view source);

/// Returns the part of a source of ODBC after "odbc:".
std::string_view connectionOf(std::string_view odbcSource);

/// Returns the names and values of a connection string. Values in braces may contain any sign.
std::vector<std::pair<std::string, std::string>> connectionPairs(std::string_view connection);

/// Returns true if a connection string contains a password. Other users can read it if the string is an
/// argument of a program.
bool hasPassword(std::string_view connection);

}  // namespace mergeloom
