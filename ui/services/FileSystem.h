#pragma once

#include "base/AutomationError.h"

#include <string>

namespace mergeloom {

inline constexpr ErrorNumber kFileAlreadyExists = 58;

enum class Overwriting { Refused, Allowed };

/// What a user does with whole files. Each failure is an AutomationError with a sentence that names the file;
/// afterwards both files are what they were.
class FileSystem {
  public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    /// Raises kFileAlreadyExists where something has the new name and overwriting is refused; so do move and
    /// rename.
    virtual void copy(const std::string& from, const std::string& to,
                      Overwriting overwriting = Overwriting::Refused) = 0;
    /// A folder moves on its own disk only.
    virtual void move(const std::string& from, const std::string& to,
                      Overwriting overwriting = Overwriting::Refused) = 0;
    /// Gives a file or folder another name in its folder.
    virtual void rename(const std::string& path, const std::string& newName,
                        Overwriting overwriting = Overwriting::Refused) = 0;
    /// Puts a file or folder into the desktop's trash, from which the user can take it back.
    virtual void moveToTrash(const std::string& path) = 0;
    /// Makes a folder with those above it. A folder that is there already is no error.
    virtual void createFolder(const std::string& path) = 0;
};

}  // namespace mergeloom
