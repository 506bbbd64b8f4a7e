#pragma once

#include "office/libreoffice/word/TextPlace.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Returns the text of a range as Word gives it: a paragraph mark reads as CR, the mark of a cell or row as
/// CR and U+0007.
std::string textOf(const TrackedRange& range);

/// Returns the parts of a range in place order, each within one of Writer's texts.
std::vector<CursorReference> partsOf(const TrackedRange& range);

}  // namespace mergeloom::libreoffice
