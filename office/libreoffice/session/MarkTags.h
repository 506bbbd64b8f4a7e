#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::libreoffice {

/// The start or the end of a bookmark in the XML of a document's part.
struct MarkTag {
    std::size_t at = 0;
    std::size_t length = 0;
    std::string id;
    std::string name;  ///< of a start
};

std::vector<MarkTag> startTags(std::string_view xml);
std::vector<MarkTag> endTags(std::string_view xml);
std::string endTag(const std::string& id);

/// Characters to remove at an index of the XML, and the text to insert there.
struct XmlChange {
    std::size_t removed = 0;
    std::string added;
};

/// Returns the XML with the changes; none when there are no changes.
std::optional<std::string> withChanges(const std::string& xml,
                                       const std::map<std::size_t, XmlChange>& changes);

/// Mends the XML of one part; returns none when there is nothing to mend.
using PartMender = std::function<std::optional<std::string>(const std::string& xml)>;

/// Mends the parts of a Word document; returns none when there is nothing to mend. Raises kFileCouldNotBeRead
/// for a file that is no package.
std::optional<std::string> packageWithMendedParts(const std::string& bytes, const std::string& fileName,
                                                  const PartMender& mend);

/// Moves the ends of bookmarks from after a row or a table into the last paragraph before. ECMA-376 (Part 1,
/// 17.13.6) allows both, but LibreOffice 25.2 reads a bookmark that ends outside of a paragraph there as a
/// point. Returns none when there is nothing to move.
std::optional<std::string> withEndsInCells(const std::string& xml);

/// Does the same for a whole file; returns none also for a file that is no package.
std::optional<std::string> packageWithEndsInCells(const std::string& bytes, const std::string& fileName);

}  // namespace mergeloom::libreoffice
