#pragma once

#include <ostream>
#include <string_view>

namespace mergeloom {

/// Writes a text to a terminal as the program's own: after its name, with further lines indented to the first
/// one's text. A line may end with CR LF, CR or LF.
void writeConsoleText(std::ostream& stream, std::string_view text);

}  // namespace mergeloom
