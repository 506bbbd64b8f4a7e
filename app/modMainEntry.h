#pragma once

#include "base/Messages.h"

#include <functional>
#include <optional>
#include <ostream>
#include <span>
#include <string>

namespace mergeloom {

/// The streams for the program's results and its messages.
struct Console {
    std::ostream& output;
    std::ostream& errors;
    bool errorsAreWatched = false;  ///< the errors go to a terminal, where progress can be shown
    std::optional<std::string>
        commandLine{};             ///< the text after the program's name, where the system passes one
    Messages* messages = nullptr;  ///< shows messages; without it they are lines on the errors
};

/// Shows the designer to a user with the switches of the command line and returns the exit status.
using DesignerStarter = std::function<int(std::span<const std::string> arguments)>;

/// The entry routine: takes the arguments without the program's name and returns the process's exit status.
int Main(std::span<const std::string> arguments, const Console& console,
         const DesignerStarter& startDesigner);

}  // namespace mergeloom
