#pragma once

#include "base/FileStore.h"
#include "base/FileSystemCalls.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom {

/// A file beside another, its target, that is written first and replaces the target when it is complete.
/// Otherwise it is removed at the end of its life and the target stays unchanged.
///
/// All errors are kFileCouldNotBeSaved with a sentence that names the target.
class TemporaryFile final : public ByteSink {
  public:
    /// Uses the mode of the file that is to be replaced, or the default mode of a new file.
    TemporaryFile(FileSystemCalls& calls, const std::string& target, std::optional<mode_t> mode);
    ~TemporaryFile() override;

    void write(std::span<const char> bytes) override;
    /// Flushes the bytes to the disk and replaces the target. When the disk fails only after that, the error
    /// says that the target is already the new file.
    void replaceTarget();
    /// Replaces the target without flushing the bytes to the disk; synchroniseFileSystem does that for many
    /// files at once.
    void replaceTargetUnflushed();

  private:
    void create(mode_t mode);
    void setMode(mode_t mode);
    void remove();
    void flush();
    void writeThrough(std::string_view bytes);
    void closeFile();
    [[noreturn]] void fail(int error) const;

    FileSystemCalls& calls_;
    std::string target_;
    std::string folder_;
    std::string path_;  ///< empty when no file is to be removed
    int file_ = -1;
    std::string buffer_;
};

/// Flushes the file system of a folder to the disk. The error names a file in the folder as not confirmed.
void synchroniseFileSystem(FileSystemCalls& calls, const std::string& folder, const std::string& file);

}  // namespace mergeloom
