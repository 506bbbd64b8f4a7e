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

}  // namespace mergeloom
