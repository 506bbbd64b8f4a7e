#pragma once

#include "office/libreoffice/readback/ContentDigest.h"
#include "office/libreoffice/readback/StoredContent.h"

namespace mergeloom::libreoffice {

/// Reads the texts and places of a document as Writer stores it (OpenDocument 1.3, part 3).
ContentDigest digestOfText(const StoredContent& stored);
/// The same of a workbook: the texts of cells with their addresses, without those that formulas make, and the
/// cells that names stand for.
ContentDigest digestOfCells(const StoredContent& stored);

}  // namespace mergeloom::libreoffice
