#pragma once

#include "office/libreoffice/word/WriterContent.h"

namespace mergeloom::libreoffice {

/// Returns the outermost field that Writer does not know and that begins at the start of the stretch and ends
/// in it, or none.
ObjectPtr unknownFieldAtStart(const StoryMap& map, Stretch stretch);

/// Takes the marks of such a field out of the text, with its code. Its result stays as text. Returns how many
/// characters went.
CharacterCount dissolveUnknownField(WriterContent& content, WriterStory& story, const ObjectPtr& field);

}  // namespace mergeloom::libreoffice
