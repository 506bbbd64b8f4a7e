#pragma once

#include "base/AutomationError.h"
#include "base/FileSystemCalls.h"

#include <string>

namespace mergeloom {

inline constexpr ErrorNumber kFileAlreadyExists = 58;

enum class Overwriting { Refused, Allowed };

/// Handles whole files for a user. Each failure is an AutomationError with a sentence that names the file;
/// afterwards both files are as before.
class FileSystem {
  public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    /// Copies a file. Raises kFileAlreadyExists when something has the new name and overwriting is refused;
    /// so do move and rename.
    virtual void copy(const std::string& from, const std::string& to,
                      Overwriting overwriting = Overwriting::Refused) = 0;
    /// Moves a file or folder; a folder moves on its own disk only.
    virtual void move(const std::string& from, const std::string& to,
                      Overwriting overwriting = Overwriting::Refused) = 0;
    /// Gives a file or folder another name in its folder.
    virtual void rename(const std::string& path, const std::string& newName,
                        Overwriting overwriting = Overwriting::Refused) = 0;
    /// Moves a file or folder to the desktop's trash, from which the user can restore it.
    virtual void moveToTrash(const std::string& path) = 0;
    /// Makes a folder with its parents. An existing folder is no error.
    virtual void createFolder(const std::string& path) = 0;
};

/// The files of the disk. A copy is written beside its target and renamed, so a target is never half a file;
/// a move to another disk is such a copy, after which the original is removed.
class DiskFileSystem final : public FileSystem {
  public:
    explicit DiskFileSystem(FileSystemCalls& calls = systemFileCalls()) : calls_(calls) {}

    void copy(const std::string& from, const std::string& to,
              Overwriting overwriting = Overwriting::Refused) override;
    void move(const std::string& from, const std::string& to,
              Overwriting overwriting = Overwriting::Refused) override;
    void rename(const std::string& path, const std::string& newName,
                Overwriting overwriting = Overwriting::Refused) override;
    void moveToTrash(const std::string& path) override;
    void createFolder(const std::string& path) override;

  private:
    [[nodiscard]] bool exists(const std::string& path);
    void checkTarget(const std::string& to, Overwriting overwriting);
    void moveToAnotherDisk(const std::string& from, const std::string& to);

    FileSystemCalls& calls_;
};

}  // namespace mergeloom
