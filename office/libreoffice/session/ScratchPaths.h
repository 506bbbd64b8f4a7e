#pragma once

#include "office/libreoffice/session/LibreOfficeProcess.h"

#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// The paths of the temporary files that an office reads and writes: copies in folders of their own, and new
/// files beside the files that they will replace.
class ScratchPaths {
  public:
    /// The folder must exist; it is removed with the office's process.
    explicit ScratchPaths(std::string folder) : folder_(std::move(folder)) {}

    /// Returns a path for a copy of the file. The name is plain, so that it does not depend on a locale.
    std::string forCopy(const std::string& path);
    /// Makes an empty file in the file's own folder and returns its path; returns a path for a copy when that
    /// folder cannot be written.
    std::string beside(const std::string& path);
    /// Returns true if the URL is that of a copy.
    [[nodiscard]] bool contains(const std::string& url) const;
    /// Removes the file at such a path, or at the URL of a copy.
    void remove(const std::string& path) const;
    void removeCopy(const std::string& url) const;

  private:
    std::string folder_;
    int copies_ = 0;
};

/// Removes a temporary file at the end of its life.
class ScopedTempFile {
  public:
    ScopedTempFile(const ScratchPaths& scratch, std::string path)
        : scratch_(scratch), path_(std::move(path)) {}
    ScopedTempFile(const ScopedTempFile&) = delete;
    ScopedTempFile& operator=(const ScopedTempFile&) = delete;
    ~ScopedTempFile() { scratch_.remove(path_); }

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    const ScratchPaths& scratch_;
    std::string path_;
};

/// Removes a file that an office has written only in part. The office first writes a file with a name of its
/// own beside it, which remains when the office is killed. Both files are then removed, also when this
/// process is killed, and no other file.
class PartialFileCleanup {
  public:
    /// The process must outlive it.
    PartialFileCleanup(const LibreOfficeProcess& process, const std::string& path);
    PartialFileCleanup(const PartialFileCleanup&) = delete;
    PartialFileCleanup& operator=(const PartialFileCleanup&) = delete;
    /// Removes the files when an error ends the scope.
    ~PartialFileCleanup();

  private:
    const LibreOfficeProcess& process_;
    int errors_;
};

}  // namespace mergeloom::libreoffice
