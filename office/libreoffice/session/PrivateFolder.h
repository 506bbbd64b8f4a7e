#pragma once

#include <string>

namespace mergeloom::libreoffice {

/// A new folder of this run's own in the system's folder for temporary files, open to nobody else. It is
/// removed with all its files at the end of its life.
class PrivateFolder {
  public:
    /// Makes the folder. Raises kNotAvailable with a sentence that names the folder which could not be
    /// written.
    PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    ~PrivateFolder();

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    std::string path_;
};

}  // namespace mergeloom::libreoffice
