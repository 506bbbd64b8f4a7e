#pragma once

#include <optional>
#include <string>

namespace mergeloom::libreoffice {

/// Moves the ends of bookmarks from after a row or a table into the last paragraph before. ECMA-376 (Part 1,
/// 17.13.6) allows both, but LibreOffice 25.2 reads a bookmark that ends outside of a paragraph there as a
/// point. Returns none when there is nothing to move.
std::optional<std::string> withEndsInCells(const std::string& xml);

/// Does the same for a whole file; returns none also for a file that is no package.
std::optional<std::string> packageWithEndsInCells(const std::string& bytes, const std::string& fileName);

}  // namespace mergeloom::libreoffice
