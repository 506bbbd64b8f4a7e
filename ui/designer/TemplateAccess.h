#pragma once

#include "base/Messages.h"
#include "office/model/DocumentHost.h"
#include "ui/designer/TemplateFiles.h"

#include <optional>
#include <string>

namespace mergeloom {

/// Asks the user how to open a file that is open elsewhere; none when it is not to be opened.
std::optional<FileAccess> askForAccess(Messages& messages, TemplateFiles& files, const std::string& path);

/// Returns the window's caption for a file.
std::string captionOf(const std::string& path, FileAccess access);

}  // namespace mergeloom
