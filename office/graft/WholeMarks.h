#pragma once

#include "office/opc/Package.h"

#include <string>

namespace mergeloom::graft {

/// Reads a document that LibreOffice exported, with each bookmark as one start and one end. LibreOffice
/// writes a bookmark over several paragraphs as several starts of one name, of which the last has an end, and
/// one over a table as if it ended in the last cell. Raises kFileCouldNotBeRead.
opc::Package packageWithWholeMarks(const std::string& bytes, const std::string& fileName);

}  // namespace mergeloom::graft
