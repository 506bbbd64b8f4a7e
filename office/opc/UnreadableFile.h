#pragma once

#include <string>
#include <string_view>

namespace mergeloom::opc {

/// Raises kFileCouldNotBeRead with a sentence that names the file and says why. The reason is a clause of
/// that sentence, without a full stop.
[[noreturn]] void raiseUnreadable(const std::string& fileName, const std::string& reason);

/// A name out of a file in double quotes, fit for a message: control characters show as "?", and a name that
/// never ends is cut.
std::string quoted(std::string_view name);

}  // namespace mergeloom::opc
