#pragma once

#include "office/libreoffice/readback/ContentDigest.h"

#include <string>

namespace mergeloom::libreoffice {

/// Reads the texts and places of a document of Open Packaging (ECMA-376 Part 1, clause 17) from its own
/// bytes, so that nothing is lost on the way. The file's name stands in errors.
ContentDigest digestOfWordPackage(const std::string& bytes, const std::string& fileName);

}  // namespace mergeloom::libreoffice
