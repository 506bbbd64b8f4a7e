#pragma once

#include "app/MappingSource.h"

#include <string>

namespace mergeloom {

/// Returns a sentence that names the controls of an object that become no place because they have no caption.
/// Empty when there are none.
std::string leftOutControls(const MappingSource& source, const TreeNode& object);

}  // namespace mergeloom
