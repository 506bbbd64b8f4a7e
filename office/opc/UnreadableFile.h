#pragma once

#include <string>
#include <string_view>

namespace mergeloom::opc {

/// Raises kFileCouldNotBeRead with a sentence that names the file and the reason. The reason is a clause of
/// that sentence, without a full stop.
[[noreturn]] void raiseUnreadable(const std::string& fileName, const std::string& reason);

/// Returns a name from a file in double quotes for a message: control characters become "?", and a very long
/// name is cut.
std::string quoted(std::string_view name);

}  // namespace mergeloom::opc
