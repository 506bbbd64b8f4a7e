#include "describe/OdbcSource.h"

#include "base/AutomationError.h"
#include "base/DatabaseFile.h"
#include "base/OptionReader.h"
#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace mergeloom::describe {

namespace {

constexpr std::string_view kPrefix = "odbc:";

/// Removes and returns the first pair of a connection string. Values in braces may contain any sign.
std::pair<std::string, std::string> takePair(std::string_view& text) {
    const std::size_t nameEnd = std::min(text.find_first_of("=;"), text.size());
    std::string name(trimBlanks(text.substr(0, nameEnd)));
    text.remove_prefix(nameEnd);
    std::size_t end = 0;
    if (text.starts_with("={")) {
        end = text.find('}');
        while (end != std::string_view::npos && text.substr(end + 1).starts_with('}'))
            end = text.find('}', end + 2);
    }
    end = std::min(text.find(';', std::min(end, text.size())), text.size());
    const std::string_view value = text.substr(0, end).substr(text.starts_with('=') ? 1 : 0);
    text.remove_prefix(std::min(end + 1, text.size()));
    return {std::move(name), std::string(trimBlanks(value))};
}

std::vector<std::pair<std::string, std::string>> pairsOf(std::string_view connection) {
    std::vector<std::pair<std::string, std::string>> pairs;
    while (!connection.empty())
        pairs.push_back(takePair(connection));
    return pairs;
}

bool isPassword(const std::string& name) {
    return equalsIgnoringAsciiCase(name, "PWD") || equalsIgnoringAsciiCase(name, "PASSWORD");
}

}  // namespace

bool isOdbcSource(std::string_view source) {
    return source.starts_with(kPrefix);
}

std::string odbcConnectionString(std::string_view source) {
    const std::string_view connection = source.substr(kPrefix.size());
    for (const auto& [name, value] : pairsOf(connection)) {
        if (!isPassword(name)) continue;
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
    const auto pairs = pairsOf(odbcConnectionString(source));
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
