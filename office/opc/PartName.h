#pragma once

#include <string>
#include <string_view>

/// Names of parts (ECMA-376 Part 2, 6.2.2): "/word/document.xml". As the source of a relationship, "/" is the
/// package itself. Each part is an entry of the zip archive, whose names have rules of their own.
namespace mergeloom::opc {

inline constexpr std::string_view kPackageItself = "/";
inline constexpr std::string_view kContentTypesName = "/[Content_Types].xml";

/// Returns the part name of a zip entry: with a leading "/", and "/" for every backslash.
std::string partNameOfEntry(std::string_view entryName);
/// Returns the name of the zip entry for a new part.
std::string entryNameOfPart(std::string_view partName);

/// Returns the form in which names are compared: letter case, backslashes, a missing "/" at the start and
/// percent encoding make no difference (ECMA-376 Part 2, 6.2.2.3).
std::string partKey(std::string_view partName);

/// Returns "/word/" for "/word/document.xml".
std::string_view folderOf(std::string_view partName);
/// Returns "xml" for "/word/document.xml", as it is written; empty if there is none.
std::string_view extensionOf(std::string_view partName);

/// Returns the part with the relationships of a part, or of the package for "/" (ECMA-376 Part 2, 6.5.2.2).
std::string relationshipsPartOf(std::string_view partName);
bool isRelationshipsPart(std::string_view partName);

/// Returns the part that a relationship's internal target means, relative to the source part (RFC 3986, 5.2).
/// Steps above the root stay at the root; a fragment is left out.
std::string resolveTarget(std::string_view sourcePart, std::string_view target);
/// Returns the target of a relationship from the source part to the other part: relative below the source's
/// folder, otherwise absolute.
std::string targetFrom(std::string_view sourcePart, std::string_view partName);

/// Returns the text with "%hh" for every byte that is neither an ASCII letter or digit nor one of the given
/// characters.
std::string percentEncoded(std::string_view text, std::string_view plain);
std::string percentDecoded(std::string_view text);

/// Returns a stored name as UTF-8. Without the UTF-8 flag a name is CP437 (APPNOTE appendix D), but many
/// programs store UTF-8 without it, so a well-formed UTF-8 name is read as UTF-8. A name with the flag that
/// is not UTF-8 becomes one that whyUnfitAsEntryName refuses.
std::string decodeEntryName(std::string_view stored, bool hasUtf8Flag);

/// Returns why a name is not allowed in a package, as a clause for a message: it leads out of the folder into
/// which the archive is unpacked, or different programs take it for different parts. Empty for a valid name.
std::string whyUnfitAsEntryName(std::string_view name);

/// Returns true if the entry is a folder: its name ends in a separator, and it has no content.
bool isFolderName(std::string_view name);

}  // namespace mergeloom::opc
