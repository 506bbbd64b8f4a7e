#include "describe/ColumnName.h"

#include "base/Text.h"

#include <cctype>
#include <cstddef>

namespace mergeloom::describe {

std::optional<std::string> takeName(std::string_view& text) {
    std::size_t end = 0;
    if (text.starts_with('[')) {
        end = text.find(']');
        if (end == std::string_view::npos) return std::nullopt;
        std::string name(text.substr(1, end - 1));
        text.remove_prefix(end + 1);
        return name;
    }
    const auto isInName = [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return code >= 0x80 || std::isalnum(code) != 0 || letter == '_';
    };
    while (end < text.size() && isInName(text[end]))
        ++end;
    if (end == 0) return std::nullopt;
    std::string name(text.substr(0, end));
    text.remove_prefix(end);
    return name;
}

std::optional<ColumnName> columnNameOf(std::string_view expression) {
    constexpr const char* kAll = "*";
    std::string_view rest = trimBlanks(expression);
    if (rest == kAll) return ColumnName{{}, kAll};
    const std::optional<std::string> first = takeName(rest);
    if (!first) return std::nullopt;
    if (rest.empty()) return ColumnName{{}, *first};
    if (!rest.starts_with('.') && !rest.starts_with('!')) return std::nullopt;
    rest.remove_prefix(1);
    if (rest == kAll) return ColumnName{*first, kAll};
    const std::optional<std::string> second = takeName(rest);
    return second && rest.empty() ? std::optional(ColumnName{*first, *second}) : std::nullopt;
}

}  // namespace mergeloom::describe
