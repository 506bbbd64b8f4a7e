#pragma once

#include <optional>
#include <set>
#include <string>

namespace mergeloom::libreoffice {

/// Mends the bookmarks in a part of a document that LibreOffice wrote: one that ends in another paragraph
/// than it begins in starts a second time there, under an id of its own, and the first start is left without
/// an end (ECMA-376 Part 1, 17.13.6). Those over whole tables, which Writer ends in the last cell, end after
/// the table then, as in Word. Returns none if there is nothing to mend.
std::optional<std::string> withWholeBookmarks(const std::string& xml,
                                              const std::set<std::string>& namesOverTables = {});

/// The same for a whole file of Open Packaging.
std::optional<std::string> packageWithWholeBookmarks(const std::string& bytes, const std::string& fileName,
                                                     const std::set<std::string>& namesOverTables);

}  // namespace mergeloom::libreoffice
