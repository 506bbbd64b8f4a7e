#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace mergeloom::describe {

/// The streams of the program.
struct Streams {
    std::ostream& output;
    std::ostream& errors;
    bool showsProgress = false;
};

/// Runs the program with its arguments (without its name). Returns the exit status.
int Main(std::span<const std::string> arguments, const Streams& streams);

}  // namespace mergeloom::describe
