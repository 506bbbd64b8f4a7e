#include "describe/ListLookup.h"

#include "base/Text.h"
#include "describe/ColumnName.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace mergeloom::describe {

namespace {

/// The rows of a list. A column that is an expression is empty.
struct ListRows {
    const Table* table = nullptr;
    std::vector<std::string> columns{};
};

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kSpace = " \t\r\n;";
    const std::size_t first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kSpace) + 1 - first);
}

/// Takes a word of the language from the front of a text.
bool takeWord(std::string_view& text, std::string_view word) {
    if (!equalsIgnoringAsciiCase(text.substr(0, word.size()), word)) return false;
    const std::string_view rest = text.substr(word.size());
    const std::string_view following = trimmed(rest);
    if (!rest.empty() && !rest.starts_with('[') && following.size() == rest.size()) return false;
    text = following;
    return true;
}

/// Takes the items of a list up to the word FROM. Returns none if there is no such word.
std::optional<std::vector<std::string_view>> takeItems(std::string_view& text) {
    std::vector<std::string_view> items;
    std::size_t begin = 0;
    int depth = 0;
    char quote = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const char letter = text[place];
        if (quote != 0) {
            if (letter == quote) quote = 0;
        } else if (letter == '[') {
            quote = ']';
        } else if (letter == '"' || letter == '\'') {
            quote = letter;
        } else if (letter == '(' || letter == ')') {
            depth += letter == '(' ? 1 : -1;
        } else if (depth == 0 && letter == ',') {
            items.push_back(text.substr(begin, place - begin));
            begin = place + 1;
        } else if (depth == 0 && (letter == 'F' || letter == 'f')) {
            std::string_view rest = text.substr(place);
            const bool startsWord = place > 0 && trimmed(text.substr(place - 1, 1)).empty();
            if ((!startsWord && !text.substr(0, place).ends_with(']')) || !takeWord(rest, "FROM")) continue;
            items.push_back(text.substr(begin, place - begin));
            text = rest;
            return items;
        }
    }
    return std::nullopt;
}

/// Returns the column that an item names, or an empty text for an expression.
std::string columnOf(std::string_view item, const Table& table) {
    std::string_view rest = trimmed(item);
    std::optional<std::string> name = takeName(rest);
    if (!name) return {};
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        if (!equalsIgnoringCase(*name, table.name)) return {};
        name = takeName(rest);
    }
    std::string_view following = trimmed(rest);
    if (!name || (!following.empty() && !takeWord(following, "AS"))) return {};
    const Column* const column = columnNamed(table, *name);
    return column == nullptr ? std::string() : column->name;
}

ListRows rowsOfTable(const Table& table) {
    ListRows rows{&table};
    for (const Column& column : table.columns)
        rows.columns.push_back(column.name);
    return rows;
}

/// Reads "SELECT [DISTINCT] items FROM table [ORDER BY …]".
ListRows rowsOfStatement(std::string_view text, const std::vector<Table>& tables) {
    text = trimmed(text);
    if (!takeWord(text, "SELECT")) return {};
    for (const char* const word : {"DISTINCTROW", "DISTINCT"})
        takeWord(text, word);
    const std::optional<std::vector<std::string_view>> items = takeItems(text);
    if (!items) return {};
    const std::optional<std::string> name = takeName(text);
    std::string_view rest = trimmed(text);
    if (!name || (!rest.empty() && !takeWord(rest, "ORDER"))) return {};
    const Table* const table = tableNamed(tables, *name);
    if (table == nullptr) return {};
    if (items->size() == 1 && (trimmed(items->front()) == "*" || trimmed(items->front()).ends_with(".*")))
        return rowsOfTable(*table);
    ListRows rows{table};
    for (const std::string_view item : *items)
        rows.columns.push_back(columnOf(item, *table));
    return rows;
}

/// Returns true for a width such as "0" and "0.00cm". An empty one means the usual width.
bool isZero(std::string_view width) {
    const std::string_view digits = width.substr(0, width.find_first_not_of("0123456789.,"));
    return !digits.empty() && digits.find_first_of("123456789") == std::string_view::npos;
}

bool isKey(const Table& table, const std::string& column) {
    return std::ranges::find(table.keys, std::vector{column}) != table.keys.end();
}

}  // namespace

std::size_t firstVisibleColumn(const ListSource& list) {
    std::size_t index = 0;
    for (const std::string_view width : split(list.widths, ';')) {
        if (!isZero(trimBlanks(width))) return index;
        ++index;
    }
    return list.widths.empty() ? 0 : index;
}

std::optional<Lookup> lookupIn(const ListSource& list, const std::string& column,
                               const std::vector<Table>& tables) {
    if (list.kind != ListSource::Kind::Rows || list.rows.empty() || list.boundColumn < 1) return std::nullopt;
    const Table* const whole = tableNamed(tables, list.rows);
    const ListRows rows = whole != nullptr ? rowsOfTable(*whole) : rowsOfStatement(list.rows, tables);
    const auto bound = static_cast<std::size_t>(list.boundColumn - 1);
    const std::size_t shown = firstVisibleColumn(list);
    if (rows.table == nullptr || rows.table->kind != TableKind::Table || bound >= rows.columns.size() ||
        shown >= rows.columns.size() || rows.columns[shown].empty() || shown == bound ||
        !isKey(*rows.table, rows.columns[bound]))
        return std::nullopt;
    return Lookup{column, rows.table->name, rows.columns[bound], rows.columns[shown]};
}

}  // namespace mergeloom::describe
