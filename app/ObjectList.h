#pragma once

#include "app/DatabaseObjects.h"
#include "app/GnuOptions.h"

#include <ostream>
#include <vector>

namespace mergeloom {

/// Writes the objects as an aligned table with a heading, or as a JSON array of objects: "kind", "name" and
/// "view" are texts, a view that is not given is null; "controls" is the number of controls, those of
/// subforms included.
void writeObjects(std::ostream& stream, const std::vector<DatabaseObject>& objects, ListFormat format);

}  // namespace mergeloom
