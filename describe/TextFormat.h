#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Returns a text by a format of Access for texts: ">" for capital letters, "@@@-@@@" for characters, and a
/// second section for an empty text. Returns none for an unknown format.
std::optional<std::string> formattedText(std::string_view text, std::string_view format);

}  // namespace mergeloom::describe
