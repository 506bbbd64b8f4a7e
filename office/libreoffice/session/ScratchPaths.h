#pragma once

#include <string>

namespace mergeloom::libreoffice {

/// Where an office reads and writes files that are not the callers' own: copies in folders of their own, and
/// new files beside those that they are to replace.
class ScratchPaths {
  public:
    /// The folder has to exist; it goes with the office's process.
    explicit ScratchPaths(std::string folder) : folder_(std::move(folder)) {}

    /// A path for a copy of the file. The name is plain, so that no locale has a say in it.
    std::string forCopy(const std::string& path);
    /// The path of a new, empty file in the file's own folder; one for a copy where that folder cannot be
    /// written.
    std::string beside(const std::string& path);
    /// Whether the URL leads to a copy.
    [[nodiscard]] bool holds(const std::string& url) const;
    /// Removes what the office wrote or read at such a path, or at the URL of a copy.
    void remove(const std::string& path) const;
    void removeCopy(const std::string& url) const;

  private:
    std::string folder_;
    int copies_ = 0;
};

}  // namespace mergeloom::libreoffice
