#include "describe/OdbcSource.h"

#include "base/AutomationError.h"
#include "base/ConnectionString.h"
#include "base/DatabaseFile.h"
#include "base/OptionReader.h"
#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>

namespace mergeloom::describe {

std::string odbcConnectionString(std::string_view source) {
    const std::string_view connection = connectionOf(source);
    if (hasPassword(connection)) {
        throw AutomationError(
            kOptionNotUnderstood,
            "The source has a password in it, which others could read in the list of processes. "
            "Leave it out: it is taken from the data source or from MERGELOOM_ODBC_PASSWORD, or "
            "asked for.");
    }
    if (trimBlanks(connection).empty())
        throw AutomationError(kOptionNotUnderstood,
                              "The source names no data source, as 'odbc:DSN=shop' does.");
    const bool isName = connection.find('=') == std::string_view::npos;
    return (isName ? "DSN=" : "") + std::string(connection);
}

std::string odbcDatabaseName(std::string_view source) {
    const auto pairs = connectionPairs(odbcConnectionString(source));
    for (const std::string_view key : {"DSN", "DATABASE", "DB"}) {
        const auto found = std::ranges::find_if(
            pairs, [key](const auto& pair) { return equalsIgnoringAsciiCase(pair.first, key); });
        if (found == pairs.end()) continue;
        const std::string name = fileNameOnly(found->second);
        // The point in the name of a data source or of a server's database begins no extension.
        const bool isFile = key != "DSN" && (name != found->second || isDatabaseFile(name));
        return isFile ? name.substr(0, name.rfind('.')) : name;
    }
    return "database";
}

std::string withPassword(const std::string& connectionString, const std::string& password) {
    return connectionString + (connectionString.ends_with(';') ? "" : ";") + "PWD={" +
           replaceAll(password, "}", "}}") + "}";
}

}  // namespace mergeloom::describe
