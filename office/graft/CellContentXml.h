#pragma once

#include "office/embedded/sheet/SheetPart.h"
#include "office/graft/ExportedSheet.h"

#include <optional>
#include <string>

namespace mergeloom::graft {

/// Returns the text of an exported cell; none for a number, a formula and a text with formats of its own.
std::optional<std::string> plainText(const ExportedCell& cell);

/// Returns the content of an exported cell. Its elements have the namespace prefix of another part.
embedded::CellContent contentOf(const ExportedCell& cell, const embedded::SheetPart& target);

/// Returns the result of an exported cell's formula. Its element has the namespace prefix of another part.
embedded::CellContent resultOf(const ExportedCell& cell, const embedded::SheetPart& target);

}  // namespace mergeloom::graft
