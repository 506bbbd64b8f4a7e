#pragma once

#include "droppers/DropReports.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shape.h"
#include "office/model/excel/Worksheet.h"

#include <string>

namespace mergeloom {

/// Whether a cell keeps its width or takes that of the picture put on it. Its height follows the picture
/// either way.
enum class CellFit { KeepWidth, FitPicture };

/// The shape of that name on a sheet; none when there is none or it cannot be told.
excel::ShapePtr GetShapeByName(excel::Worksheet& sheet, const std::string& name);

/// Puts a picture on a cell, as wide as the cell, in place of a shape of that name on the sheet. A picture
/// that no cell could take is scaled down to the largest one. A cell in a hidden row or column shows again.
/// Of merged cells the first one bears the picture.
void InsertPictureFromFile(DropReports& reports, excel::Range& cell, const std::string& name,
                           const std::string& file, CellFit fit);

}  // namespace mergeloom
