#pragma once

#include "droppers/DropContext.h"
#include "droppers/ObjectLayout.h"
#include "xml/TreeView.h"

#include <string>

namespace mergeloom {

/// Says in a sentence what was looked for in an object or a subform and not found, when nothing of it was
/// dropped and nobody was told why. Empty when there is something to drop, of which the user then chose
/// nothing.
std::string nothingToDrop(const DropContext& context, const TreeNode& node, ObjectLayout layout);

}  // namespace mergeloom
