#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

/// The cells of a line.
using TextRow = std::vector<std::string>;

/// Writes lines of equally many cells with aligned columns.
void writeTextTable(std::ostream& stream, const std::vector<TextRow>& rows);

/// A text as it is shown in one line: a paragraph mark as a pilcrow, and no more than its beginning when it
/// is long.
std::string shownInLine(std::string_view text);

}  // namespace mergeloom
