#pragma once

#include "describe/access/AccessFile.h"
#include "describe/access/FieldValue.h"

#include <vector>

namespace mergeloom::describe::access {

/// Returns the bytes of a memo or an OLE object; its field contains only the length and a pointer. Raises
/// kFileCouldNotBeRead, also for a value that is too large for memory.
std::vector<unsigned char> longValueOf(const AccessFile& file, Bytes head);

}  // namespace mergeloom::describe::access
