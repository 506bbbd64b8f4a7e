#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The parts of the formats of Access.
namespace mergeloom::describe {

/// A character with a meaning or a literal text.
struct FormatToken {
    char sign = '\0';  ///< '\0' for a literal
    std::string literal{};

    [[nodiscard]] bool isOneOf(std::string_view signs) const {
        return sign != '\0' && signs.find(sign) != std::string_view::npos;
    }
};

/// Divides a format at its semicolons, except those in quotation marks and after a backslash.
std::vector<std::string_view> formatSections(std::string_view format);

/// Returns the tokens of a section. The given signs have a meaning. Colors and fill characters are omitted.
/// Returns none for a section that is incomplete or has other letters or digits.
std::optional<std::vector<FormatToken>> tokensOf(std::string_view section, std::string_view signs);

/// Returns the text of a section that has only literals; otherwise none.
std::optional<std::string> literalOf(std::string_view section);

}  // namespace mergeloom::describe
