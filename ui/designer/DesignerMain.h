#pragma once

namespace mergeloom {

/// The designer's run, with the arguments that the command line's own program was started with: the same
/// switches, read again here. Gives the process's exit status.
int runDesigner(int& count, char** values);

}  // namespace mergeloom
