#pragma once

#include "ui/dialogs/OpenFileName.h"

#include <cstdint>
#include <string>

namespace mergeloom {

enum class FileDialogKind { Open, Save };

/// A question to the user: for a file to open or to save.
struct FileQuestion {
    FileDialogKind kind;
    std::string title;
    std::string extension;
    std::string directory;
    std::string filter;  ///< "description|pattern|…"
    std::string fileName;
    int filterIndex = 1;  ///< counted from 1
    bool allowMultiSelect = false;
};

/// The window in which a user chooses files.
class FileDialog {
  public:
    FileDialog() = default;
    FileDialog(const FileDialog&) = delete;
    FileDialog& operator=(const FileDialog&) = delete;
    virtual ~FileDialog() = default;

    /// Returns the handle of the window that the user works in, which owns the dialog; 0 without one.
    virtual std::uint32_t activeWindow() { return 0; }
    /// Asks the user. Returns true when something was chosen; then the record and its texts have the result
    /// as GetOpenFileName and GetSaveFileName return it: one path; or, of several files, their folder and
    /// names, each ended by a NUL and all by one more, with an empty lpstrFileTitle.
    virtual bool show(FileDialogKind kind, OpenFileName& record, OpenFileTexts& texts) = 0;
};

}  // namespace mergeloom
