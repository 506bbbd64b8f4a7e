#pragma once

#include "describe/access/AccessFile.h"
#include "describe/access/FieldValue.h"

#include <vector>

namespace mergeloom::describe::access {

/// Returns the bytes of a memo or an OLE object, of which a row has only the head. Raises
/// kFileCouldNotBeRead, also for a value that is too large to be kept in memory.
std::vector<unsigned char> longValueOf(const AccessFile& file, Bytes head);

}  // namespace mergeloom::describe::access
