#include "base/ConnectionString.h"

#include "base/Text.h"

#include <algorithm>

namespace mergeloom {

namespace {

constexpr std::string_view kPrefix = "odbc:";

/// Removes and returns the first pair of a connection string.
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

}  // namespace

bool isOdbcSource(std::string_view source) {
    return source.starts_with(kPrefix);
}

std::string_view connectionOf(std::string_view odbcSource) {
    return odbcSource.substr(kPrefix.size());
}

std::vector<std::pair<std::string, std::string>> connectionPairs(std::string_view connection) {
    std::vector<std::pair<std::string, std::string>> pairs;
    while (!connection.empty())
        pairs.push_back(takePair(connection));
    return pairs;
}

bool hasPassword(std::string_view connection) {
    return std::ranges::any_of(connectionPairs(connection), [](const auto& pair) {
        return equalsIgnoringAsciiCase(pair.first, "PWD") || equalsIgnoringAsciiCase(pair.first, "PASSWORD");
    });
}

}  // namespace mergeloom
