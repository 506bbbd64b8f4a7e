#include "describe/ValueList.h"

#include "base/Text.h"
#include "describe/ListLookup.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace mergeloom::describe {

namespace {

constexpr char kSeparator = ';';

/// Removes and returns the first item of a list. In an item in quotes a quote is doubled.
std::string takeValue(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    std::string value;
    if (const char quote = text.empty() ? '\0' : text[0]; quote == '"' || quote == '\'') {
        std::size_t place = 1;
        for (; place < text.size(); ++place) {
            const bool isDoubled = text.substr(place + 1).starts_with(quote);
            if (text[place] == quote && !isDoubled) break;
            if (text[place] == quote) ++place;
            value += text[place];
        }
        text.remove_prefix(std::min(place + 1, text.size()));
    } else {
        value = trimBlanks(text.substr(0, text.find(kSeparator)));
    }
    text.remove_prefix(std::min(text.find(kSeparator), text.size()));
    return value;
}

std::vector<std::string> valuesIn(std::string_view text) {
    std::vector<std::string> values;
    while (!text.empty()) {
        values.push_back(takeValue(text));
        if (text.starts_with(kSeparator)) text.remove_prefix(1);
    }
    return values;
}

}  // namespace

ValueList::ValueList(const ListSource& list) {
    if (list.kind != ListSource::Kind::Values || list.boundColumn < 1 || list.boundColumn > list.columns)
        return;
    const auto columns = static_cast<std::size_t>(list.columns);
    const auto bound = static_cast<std::size_t>(list.boundColumn - 1);
    const std::size_t shown = firstVisibleColumn(list);
    if (shown >= columns || shown == bound) return;
    const std::vector<std::string> values = valuesIn(list.rows);
    for (std::size_t row = 0; row + std::max(bound, shown) < values.size(); row += columns)
        texts_.try_emplace(foldCase(values[row + bound]), values[row + shown]);
}

const std::string* ValueList::shownFor(const ValueText& value, ColumnType type) const {
    std::string key = value.stored;
    // Access stores true as -1.
    if (type == ColumnType::Boolean) key = value.stored == "true" ? "-1" : "0";
    const auto found = texts_.find(foldCase(key));
    return found == texts_.end() ? nullptr : &found->second;
}

}  // namespace mergeloom::describe
