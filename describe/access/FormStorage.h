#pragma once

#include "describe/access/AccessSchema.h"

#include <string>
#include <vector>

namespace mergeloom::describe::access {

/// Adds the forms with these names to the schema, and sentences about those that cannot be read.
void readForms(const AccessFile& file, const std::vector<std::string>& names, AccessSchema& schema);

}  // namespace mergeloom::describe::access
