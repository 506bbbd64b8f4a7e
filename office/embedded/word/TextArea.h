#pragma once

#include "base/Units.h"
#include "office/embedded/text/Story.h"

namespace mergeloom::embedded {

/// Returns the properties of an item's section: those of the next paragraph that ends a section, or those at
/// the end of the body. None if there are none.
pugi::xml_node sectionPropertiesOf(const Story& story, const Item* item);

/// Returns the width of the text at a position: that of its cell, or of a column of its section's page
/// (ECMA-376 Part 1, 17.6). Stories without sections have the width of an A4 page's body.
Emu textAreaWidth(const Story& story, CharacterPosition position);

}  // namespace mergeloom::embedded
