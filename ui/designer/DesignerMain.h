#pragma once

namespace mergeloom {

/// Runs the designer with the arguments of the command line's own program: the same switches, read again
/// here. Returns the process's exit status.
int runDesigner(int& count, char** values);

}  // namespace mergeloom
