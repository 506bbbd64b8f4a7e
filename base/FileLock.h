#pragma once

#include <string>

namespace mergeloom {

/// Whether the file could not be had for oneself alone: another process holds a lock on it (POSIX record
/// locks, open file description locks, flock), or it cannot be opened for reading.
bool isLockedByAnother(const std::string& path);

}  // namespace mergeloom
