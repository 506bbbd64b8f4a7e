#pragma once

#include "office/embedded/package/Package.h"
#include "office/model/word/Enumerations.h"

#include <string>

namespace mergeloom::embedded {

/// Whether the engine itself writes a format.
bool canWrite(word::WdSaveFormat format);

/// Gives the main part the content type of a format (ECMA-376 Part 1, 11.3.10; the types with macros are
/// [MS-OFFMACRO2]'s). Raises kFileCouldNotBeSaved, and changes nothing, for a format that the engine does not
/// write and for a document with macros in a format that has no place for them.
void setSaveFormat(Package& package, const std::string& mainPart, word::WdSaveFormat format,
                   const std::string& fileName);

}  // namespace mergeloom::embedded
