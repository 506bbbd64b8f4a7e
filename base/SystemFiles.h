#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

/// Functions for files of the system that `FileSystemCalls` does not contain.
namespace mergeloom {

/// Opens a file for reading. Returns null and sets errno on a failure.
std::FILE* openToRead(const std::string& path);

/// Opens a new temporary file for writing and reading, which no other program sees and which is gone when it
/// is closed. Returns null and sets errno on a failure.
std::FILE* openScratchFile();

/// Makes an empty file of a name that is free, ".mergeloom-*" with the suffix, open to nobody else. Returns
/// its path; empty, with errno, when the folder cannot be written.
std::string makeUniqueFile(const std::string& folder, const std::string& suffix);

/// Returns the number of this process.
std::int64_t processNumber();

}  // namespace mergeloom
