#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>

namespace mergeloom::describe {

/// Makes a database file by statements of SQL.
inline void makeDatabase(const std::string& path, const std::string& statements) {
    sqlite3* connection = nullptr;
    const bool isMade = sqlite3_open(path.c_str(), &connection) == SQLITE_OK &&
                        sqlite3_exec(connection, statements.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    const std::string reason = sqlite3_errmsg(connection);
    sqlite3_close(connection);
    if (!isMade) throw std::runtime_error(reason);
}

}  // namespace mergeloom::describe
