#pragma once

#include "office/embedded/books/BookPiece.h"
#include "office/embedded/books/BookPlaces.h"
#include "office/embedded/books/PartCutter.h"

#include <cstddef>
#include <string>

namespace mergeloom::embedded {

/// Cuts the part of a worksheet at its places, its repeated rows and everything that moves with them. Stored
/// results of formulas are left out, since the values on which they depend change. Raises BadXml.
CutBookPart cutSheet(const std::string& xml, std::size_t sheet, const BookPlaces& places, BookSheets& sheets);

}  // namespace mergeloom::embedded
