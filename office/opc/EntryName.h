#pragma once

#include <string>
#include <string_view>

/// The names of the entries of a zip archive.
namespace mergeloom::opc {

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
