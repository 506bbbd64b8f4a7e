#pragma once

#include <ostream>
#include <string_view>

namespace mergeloom {

/// Writes a JSON string (RFC 8259, section 7).
void writeJsonText(std::ostream& stream, std::string_view text);

}  // namespace mergeloom
