#pragma once

#include "office/model/word/Document.h"

#include <string>

namespace mergeloom {

/// Moves the caret to the start of a mapping, on a line of its own: at the end of the document (kAtEnd) or
/// after the bookmark of that name. Raises MappingRefusal when there is no such bookmark or when it is in a
/// table, where nothing can begin.
void selectStart(word::Document& document, const std::string& place);

}  // namespace mergeloom
