#pragma once

#include "office/libreoffice/word/WriterContent.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The parts of a stretch that lie within one of Writer's texts each, in place order; empty cells have none.
std::vector<Stretch> partsOf(const StoryMap& map, Stretch stretch);

/// The text of a stretch as Word gives it: a paragraph mark reads as CR, the mark of a cell or row as CR and
/// U+0007.
std::string textOf(WriterContent& content, WriterStory& story, Stretch stretch);

}  // namespace mergeloom::libreoffice
