#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::windows {

/// Returns the arguments in a command line after the program's name, like CommandLineToArgvW. This function
/// would load the libraries of the desktop, which takes a third of the time of a start.
std::vector<std::string> argumentsOf(std::wstring_view line);

/// Returns a command line without the program's name, which may be in quotes.
std::string withoutProgram(std::wstring_view line);

}  // namespace mergeloom::windows
