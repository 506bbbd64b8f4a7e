#pragma once

#include "office/model/HostLook.h"

#include <string>

namespace mergeloom::libreoffice {

/// The visibility of documents: hidden, or shown in windows on the X11 screen of the environment variable
/// DISPLAY.
enum class OfficeMode { Hidden, Shown };

/// A new folder of this run's own in the system's folder for temporary files, which no other user can open.
/// It is removed with all its files at the end of its life.
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

/// Makes a folder the profile of an office. With it the office writes no lock files and shows no welcome
/// dialogs. Settings of the user's own that are in the folder from an earlier run stay. The icons, and what
/// surrounds a page, follow the look. Raises kNotAvailable when the folder cannot be written.
void makeOfficeProfile(const std::string& folder, OfficeMode mode, const HostLook& look = {});

}  // namespace mergeloom::libreoffice
