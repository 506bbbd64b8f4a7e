#pragma once

#include "base/FileStore.h"
#include "base/FileSystemCalls.h"

#include <map>
#include <mutex>
#include <optional>

namespace mergeloom {

/// The files of the disk.
///
/// A save writes a temporary file beside the target, flushes it to the disk and renames it over the target:
/// readers see the whole old file or the whole new one. A symbolic link stays and the file that it leads to
/// is replaced. The new file has the permissions of the one it replaces.
class DiskFileStore final : public FileStore {
  public:
    explicit DiskFileStore(FileSystemCalls& calls = systemFileCalls()) : calls_(calls) {}

    bool fileExists(const std::string& path) override;
    std::string read(const std::string& path) override;
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) override;
    void checkFolder(const std::string& path) override;
    void saveInBatch(const std::string& path, const std::function<void(ByteSink&)>& writer) override;
    void finishBatch() override;
    void copy(const std::string& from, const std::string& to) override;

  private:
    std::string followLinks(const std::string& path);
    std::optional<std::string> readLink(const std::string& path);
    std::optional<mode_t> modeOf(const std::string& path);

    FileSystemCalls& calls_;
    std::mutex batchMutex_;
    std::map<std::string, std::string> batch_;  ///< the folders of the batch, each with one of its files
};

}  // namespace mergeloom
