#pragma once

#include "base/FileStore.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::describe {

/// Returns true for the bytes of a picture that templates can show.
bool isPicture(std::string_view bytes);

/// The pictures of a database as files in a folder beside the structure document.
///
/// Their names depend on their content, so that a picture is written once and never over another one.
class PictureFolder {
  public:
    /// The document is the path of the structure document.
    PictureFolder(FileStore& files, const std::string& document);
    PictureFolder(const PictureFolder&) = delete;
    PictureFolder& operator=(const PictureFolder&) = delete;
    /// Removes the pictures that were added unless they were kept.
    ~PictureFolder();

    /// Writes a picture. Returns its path as the document refers to it, or an empty text for bytes that are
    /// no picture. Raises kFileCouldNotBeSaved.
    std::string add(const std::string& column, std::string_view bytes);
    /// Makes the pictures safe and keeps them. Raises kFileCouldNotBeSaved.
    void keep();

  private:
    void makeFolder();

    FileStore& files_;
    std::string parent_;
    std::string folder_;  ///< beside the document
    bool isMade_ = false;
    std::vector<std::string> added_;
};

}  // namespace mergeloom::describe
