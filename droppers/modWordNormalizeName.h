#pragma once

#include "base/Units.h"

#include <string>
#include <string_view>
#include <vector>

/// The rules that make a bookmark's name from a name of the structure document. Characters are counted in
/// UTF-16 code units.
namespace mergeloom {

bool beginsWithDigit(std::string_view text);
/// Returns true when the name has a letter, a digit or "_", of which normalizedName makes a name.
bool hasUsableCharacter(std::string_view name);

/// Returns the name with the "T" of a table appended if requested. An empty name stays empty.
std::string nameToNormalize(std::string_view name, bool appendT);

/// Keeps only letters, digits and "_", and of these at most the last ones that fit into the maximum length in
/// UTF-16 code units. Never returns a digit first.
std::string normalizedName(std::string_view name, CharacterCount maxLength);

/// Returns the bookmark name for a name: letters, digits and "_" only, at most the last 40 characters, never
/// a digit first. Empty when nothing usable is left, or when the name (with its "T") is longer than 255
/// characters.
std::string WordNormalizeName(std::string_view rstrName, bool vfAppendT);

/// Returns the name with "x" before a leading digit and without "." and blanks.
std::string SimplifyName(std::string_view vstrName);

/// Returns the text without the characters that occur in vstrChars.
std::string RemoveChars(std::string_view vstrText, std::string_view vstrChars);

/// Returns true when a bookmark's name was made from the base name: the name itself, its bound value, or a
/// further place of either with a counter of one or two digits.
bool IsBookmarkOfName(std::string_view vstrBaseName, std::string_view vstrBookmarkName);

/// Returns every name that `IsBookmarkOfName` recognises for the base name, regardless of letter case.
std::vector<std::string> PossibleBookmarkNames(std::string_view vstrBaseName);

}  // namespace mergeloom
