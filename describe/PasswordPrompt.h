#pragma once

#include <optional>
#include <string>

namespace mergeloom::describe {

/// Asks on the terminal for a password, which is not shown. Returns none without a terminal
/// and after a signal that StopSignal recorded.
std::optional<std::string> askPasswordOnTerminal();

}  // namespace mergeloom::describe
