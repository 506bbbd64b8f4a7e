#pragma once

#include "base/Record.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

namespace mergeloom {

/// Returns a record of an object whose values are the captions of its controls, as the tree shows them, for a
/// preview without data. A subform that is bound to records has two, whose values are numbered.
Record sampleRecord(const XmlNodeCollection& xmlNodes, const TreeNode& object);

}  // namespace mergeloom
