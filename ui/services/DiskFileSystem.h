#pragma once

#include "base/FileSystemCalls.h"
#include "ui/services/FileSystem.h"

#include <string>

namespace mergeloom {

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
