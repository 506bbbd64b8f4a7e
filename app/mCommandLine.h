#pragma once

#include "app/CommandLineSwitches.h"
#include "app/CommandLineText.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom {

/// One slot per switch, by the switches' indexes: empty when the switch is absent, `kEmptyValue` when it has
/// no value, else its value. There are no slots before the command line was parsed.
extern std::vector<std::string> gCommandLineArguments;

/// Parses the process's command line into `gCommandLineArguments` and returns the user's text in the
/// parameter.
void GetCommandLineArguments(const CommandLineText& commandLine, std::string& rstrCommandLine);

/// Returns the slot of a switch; an empty text when there is no such slot.
std::string GetCommandLineArgument(std::int32_t vlngIndex);

}  // namespace mergeloom
