#pragma once

#include "droppers/DropContext.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

#include <string>

namespace mergeloom {

/// The content of a new named cell, besides its name.
struct NamedRangeContent {
    bool vfBoundValueUse = false;
    std::string vstrPrefix{};       ///< precedes the name
    std::string vstrPictureFile{};  ///< a picture's full path; it is placed on the cell instead of a text
};

/// Makes the active cell a named place and returns its name; null on failure. Without a picture, the cell
/// shows the name in brackets, with prefix and the bound value's suffix. A name that is taken gets a counter.
excel::DefinedNamePtr ExcelNamedRangeAdd(DropReports& reports, excel::Workbook& workbook,
                                         const std::string& name, const NamedRangeContent& content = {});

/// The width of a cell under a picture: its own or the picture's. Its height follows the picture either way.
enum class CellFit { KeepWidth, FitPicture };

/// Returns the shape of that name on a sheet; null when there is none or it cannot be read.
excel::ShapePtr GetShapeByName(excel::Worksheet& sheet, const std::string& name);

/// Places a picture on a cell, as wide as the cell, and deletes a former shape of that name on the sheet. A
/// picture that is larger than any cell is scaled down. A hidden row or column of the cell is shown again. Of
/// merged cells, the first one holds the picture.
void InsertPictureFromFile(DropReports& reports, excel::Range& cell, const std::string& name,
                           const std::string& file, CellFit fit);

}  // namespace mergeloom
