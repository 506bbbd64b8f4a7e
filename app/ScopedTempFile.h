#pragma once

#include <string>

namespace mergeloom {

/// A file of this run's own for a document on its way between an office and a converter, open to nobody else
/// and removed at the end of its life. It lies beside the user's file, so that relative links keep their way,
/// or in the system's folder for temporary files where that folder cannot be written.
class ScopedTempFile {
  public:
    /// Makes an empty file. The extension stands without a dot. Raises kFileCouldNotBeSaved with a sentence
    /// that names the user's file when no place takes it.
    ScopedTempFile(const std::string& userFile, const std::string& extension);
    ScopedTempFile(const ScopedTempFile&) = delete;
    ScopedTempFile& operator=(const ScopedTempFile&) = delete;
    ~ScopedTempFile();

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    std::string path_;
};

}  // namespace mergeloom
