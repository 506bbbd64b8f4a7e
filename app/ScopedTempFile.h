#pragma once

#include <string>

namespace mergeloom {

/// A temporary file of this run for a document between an office and a converter, open to nobody else and
/// removed at the end of its life. It is beside the user's file, so that relative links keep working, or in
/// the system's folder for temporary files when that folder cannot be written.
class ScopedTempFile {
  public:
    /// Makes an empty file. The extension has no dot. Raises kFileCouldNotBeSaved with a sentence that names
    /// the user's file when no folder can be written.
    ScopedTempFile(const std::string& userFile, const std::string& extension);
    ScopedTempFile(const ScopedTempFile&) = delete;
    ScopedTempFile& operator=(const ScopedTempFile&) = delete;
    ~ScopedTempFile();

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    std::string path_;
};

}  // namespace mergeloom
