#pragma once

#include <string>

namespace mergeloom {

/// Returns true when another process holds a lock on the file (POSIX record locks, open file description
/// locks, flock), or when it cannot be opened for reading.
bool isLockedByAnother(const std::string& path);

}  // namespace mergeloom
