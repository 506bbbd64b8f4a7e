#pragma once

#include "office/opc/Package.h"

#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// A part of a new document. Each is the target of one relationship.
struct InitialPart {
    std::string name;         ///< such as "/word/styles.xml" (ECMA-376 Part 2, 6.2.2)
    std::string contentType;  ///< for the main part, that of a document without macros
    std::string source;       ///< the part with the relationship to this one; "/" for the package itself
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

/// Returns the package of a new document. The relationships of a source get the ids "rId1", "rId2" and so on,
/// in the order of the parts.
opc::Package initialPackage(const std::vector<InitialPart>& parts);

/// Returns the properties of a new document (ECMA-376 Part 2, 8; Part 1, 22.2), without a date and an author.
std::vector<InitialPart> newPropertyParts();

/// Returns the theme part of a new document (ECMA-376 Part 1, 20.1.6.9): colours, fonts and shape formats.
std::string_view newDocumentTheme();

/// Returns the parts of an empty document: one empty paragraph on an A4 page with margins of 2.54 cm, and the
/// styles that Word users expect. The main part comes first and a source before its targets.
std::vector<InitialPart> newDocumentParts();

/// Returns the parts of an empty workbook: one empty sheet, "Sheet1", and the styles that Excel users expect.
/// The main part comes first and a source before its targets; the workbook's first target is the sheet, to
/// which it refers as "rId1".
std::vector<InitialPart> newWorkbookParts();

}  // namespace mergeloom::embedded
