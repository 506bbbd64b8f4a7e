#pragma once

#include "ui/dialogs/OpenFileName.h"

#include <string>
#include <vector>

namespace mergeloom {

/// Fills the record with the one path that was chosen. Buffers that are too short for it grow.
void fillWithFile(OpenFileName& record, OpenFileTexts& texts, const std::string& path);

/// Fills the record with several paths of one folder.
void fillWithFiles(OpenFileName& record, OpenFileTexts& texts, const std::vector<std::string>& paths);

}  // namespace mergeloom
