#pragma once

#include <string>
#include <vector>

namespace mergeloom {

/// An entry in the list of file types: the text for the user and the patterns of names.
struct FileFilter {
    std::string description;  ///< without the patterns in brackets that it may end in
    std::vector<std::string> patterns;
    bool showsPatterns = false;  ///< the description ended in them
};

/// Returns the entries of a record's filter: descriptions and patterns in turn, each ended by a NUL; several
/// patterns have a ";" between them. "*.*" means every file, also one without an extension.
std::vector<FileFilter> parseFileFilters(const std::string& filter);

/// Returns the extension of an entry's first pattern without the "."; empty when the pattern leaves it open.
std::string extensionOf(const FileFilter& filter);

/// Returns true if a name has an extension: up to five letters and digits after its last ".", not digits
/// alone, or any that one of the patterns names. So "Offer No. 5" has none.
bool hasExtension(const std::string& fileName, const FileFilter& filter);

}  // namespace mergeloom
