#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

/// The cells of one line.
using TextRow = std::vector<std::string>;

/// Writes lines with the same number of cells in aligned columns.
void writeTextTable(std::ostream& stream, const std::vector<TextRow>& rows);

/// Returns a text as it is shown in one line: a paragraph mark as a pilcrow, and only its beginning when it
/// is long.
std::string shownInLine(std::string_view text);

/// Returns the names joined by commas, for a sentence: of more than 20 names, the first ones and the number
/// of the others.
std::string joinedNames(const std::vector<std::string>& names);

/// Writes a JSON string (RFC 8259, section 7).
void writeJsonText(std::ostream& stream, std::string_view text);

}  // namespace mergeloom
