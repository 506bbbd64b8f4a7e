#pragma once

#include "office/opc/Package.h"

#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// A part that a new document starts with. Each is the target of one relationship.
struct SeedPart {
    std::string name;         ///< such as "/word/styles.xml" (ECMA-376 Part 2, 6.2.2)
    std::string contentType;  ///< the main part's is that of a document without macros
    std::string source;       ///< the part whose relationships name this one; "/" for the package itself
    std::string relationshipType;
    std::string xml;
};

inline constexpr std::string_view kOfficeType = "application/vnd.openxmlformats-officedocument.";
inline constexpr std::string_view kOfficeRelation =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

/// Appends the rest of a type's name to its stem, such as kOfficeType.
inline std::string join(std::string_view stem, std::string_view rest) {
    return std::string(stem).append(rest);
}

/// The package of a new document. The relationships of a source get the ids "rId1", "rId2" and so on, in the
/// order of the parts.
opc::Package seededPackage(const std::vector<SeedPart>& parts);

/// Returns the properties of a new document (ECMA-376 Part 2, 8; Part 1, 22.2), without a date and an author.
std::vector<SeedPart> newPropertyParts();

/// Returns the theme part of a new document (ECMA-376 Part 1, 20.1.6.9): colours, fonts and shape formats.
std::string_view newDocumentTheme();

}  // namespace mergeloom::embedded
