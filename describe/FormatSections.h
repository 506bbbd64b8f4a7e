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

/// Divides a format at its semicolons. Those in quotation marks and after a backslash do not count.
std::vector<std::string_view> formatSections(std::string_view format);

/// Returns the tokens of a section. Those in signs have a meaning, other letters and digits none that is
/// known. Colours and characters that fill a column are left out. Returns nothing for a section that cannot
/// be read.
std::optional<std::vector<FormatToken>> tokensOf(std::string_view section, std::string_view signs);

/// Returns the text of a section that has only literals, or nothing.
std::optional<std::string> literalOf(std::string_view section);

}  // namespace mergeloom::describe
