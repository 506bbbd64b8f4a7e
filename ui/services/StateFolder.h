#pragma once

#include <string>

namespace mergeloom {

/// The user's folder for what the program keeps from run to run: $XDG_STATE_HOME/mergeloom, by default
/// ~/.local/state/mergeloom. It need not exist yet.
std::string stateFolder();

/// Makes a folder that is the user's alone, with those above it. False when there is none afterwards.
bool makePrivateFolder(const std::string& path);

}  // namespace mergeloom
