#pragma once

#include "ui/designer/TemplateOffice.h"
#include "ui/dialogs/FileDialog.h"

#include <string>

namespace mergeloom {

/// Asks the user for the files of templates.
class TemplateDialogs {
  public:
    explicit TemplateDialogs(FileDialog& dialog) : dialog_(dialog) {}

    /// Returns the full path of the file to open; empty when the user chose none.
    std::string askToOpen(TemplateOffice& office, const std::string& folder);
    /// Returns the full path of the file to save in, for which the name is proposed; empty when the user
    /// chose none.
    std::string askToSave(TemplateOffice& office, const std::string& folder, const std::string& name);

  private:
    std::string ask(const FileQuestion& question);

    FileDialog& dialog_;
};

}  // namespace mergeloom
