#pragma once

#include <string>
#include <string_view>

/// Names of parts (ECMA-376 Part 2, 6.2.2): "/word/document.xml". "/" stands for the package itself where a
/// relationship's source is meant. Each part is an entry of the zip archive, whose name has its own rules.
namespace mergeloom::opc {

inline constexpr std::string_view kPackageItself = "/";
inline constexpr std::string_view kContentTypesName = "/[Content_Types].xml";

/// The part's name that belongs to the name of a zip entry: a leading "/", and "/" for every backslash.
std::string partNameOfEntry(std::string_view entryName);
/// The name of the zip entry for a new part.
std::string entryNameOfPart(std::string_view partName);

/// The form in which names are compared: letter case, backslashes, a missing "/" at the start and percent
/// encoding make no difference (ECMA-376 Part 2, 6.2.2.3).
std::string partKey(std::string_view partName);

/// "/word/" for "/word/document.xml".
std::string_view folderOf(std::string_view partName);
/// "xml" for "/word/document.xml", as it is written; empty when there is none.
std::string_view extensionOf(std::string_view partName);

/// The part that holds the relationships of a part, or of the package for "/" (ECMA-376 Part 2, 6.5.2.2).
std::string relationshipsPartOf(std::string_view partName);
bool isRelationshipsPart(std::string_view partName);

/// The part that a relationship's internal target means, seen from the source part (RFC 3986, 5.2). What
/// climbs above the root stays at the root; a fragment is left out.
std::string resolveTarget(std::string_view sourcePart, std::string_view target);
/// The target to write so that it leads from the source part to the other: relative below the source's
/// folder, otherwise absolute.
std::string targetFrom(std::string_view sourcePart, std::string_view partName);

std::string percentDecoded(std::string_view text);

/// A stored name as UTF-8. Without the UTF-8 flag a name is CP437 (APPNOTE appendix D), but many programs
/// store UTF-8 without it, so a name that is well-formed UTF-8 counts as that. A name that has the flag and
/// is not UTF-8 becomes one that whyUnfitAsEntryName refuses.
std::string decodeEntryName(std::string_view stored, bool hasUtf8Flag);

/// Why a name cannot stand in a package: it could reach outside of the folder into which the archive is
/// unpacked, or different programs would take it for different parts. A clause for a message; empty when the
/// name is fit.
std::string whyUnfitAsEntryName(std::string_view name);

/// A folder's entry has a name that ends in a separator, and no content.
bool isFolderName(std::string_view name);

}  // namespace mergeloom::opc
