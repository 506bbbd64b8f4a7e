#pragma once

#include <string>

namespace mergeloom {

/// Returns the user's folder for data that the program keeps from run to run: $XDG_STATE_HOME/mergeloom, by
/// default ~/.local/state/mergeloom. It need not exist yet.
std::string stateFolder();

/// Makes a folder that only the user can read, with its parents. Returns false when there is none afterwards.
bool makePrivateFolder(const std::string& path);

}  // namespace mergeloom
