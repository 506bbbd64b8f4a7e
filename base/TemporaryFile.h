#pragma once

#include "base/ByteSink.h"
#include "base/FileSystemCalls.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom {

/// A file beside another, its target, that is written first and takes the target's place when it is complete.
/// When it does not come to that, it is removed at the end of its life and the target stays as it was.
///
/// All errors are kFileCouldNotBeSaved with a sentence that names the target.
class TemporaryFile final : public ByteSink {
  public:
    /// With the mode of the file that is to be replaced, or what the process's mask leaves a new file.
    TemporaryFile(FileSystemCalls& calls, const std::string& target, std::optional<mode_t> mode);
    ~TemporaryFile() override;

    void write(std::span<const char> bytes) override;
    /// Brings the bytes safely to the disk and puts the file in the target's place. When the disk fails only
    /// after that, the error says that the target is the new one already.
    void replaceTarget();

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
    std::string path_;  ///< empty when there is nothing to remove
    int file_ = -1;
    std::string buffer_;
};

}  // namespace mergeloom
