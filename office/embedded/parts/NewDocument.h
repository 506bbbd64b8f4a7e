#pragma once

#include <string>
#include <vector>

namespace mergeloom::embedded {

/// A part that a new document starts with. Each is the target of one relationship.
struct SeedPart {
    std::string name;         ///< such as "/word/styles.xml" (ECMA-376 Part 2, 6.2.2)
    std::string contentType;  ///< the main part's is that of a .docx
    std::string source;       ///< the part whose relationships name this one; "/" for the package itself
    std::string relationshipType;
    std::string xml;
};

/// The parts of an empty document: one empty paragraph on an A4 page with margins of 2.54 cm, and the styles
/// that Word users expect. The main part comes first and a source before its targets.
std::vector<SeedPart> newDocumentParts();

}  // namespace mergeloom::embedded
