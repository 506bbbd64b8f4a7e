#pragma once

#include "droppers/DropReports.h"
#include "office/model/excel/DefinedName.h"
#include "office/model/excel/Workbook.h"

#include <string>

namespace mergeloom {

/// What a new named cell is made of, besides its name.
struct NamedRangeContent {
    bool vfBoundValueUse = false;
    std::string vstrPrefix{};       ///< stands before the name
    std::string vstrPictureFile{};  ///< a picture's full path; it stands on the cell instead of a text
};

/// Makes the active cell a named place and returns its name; none when it failed. Without a picture the cell
/// shows the name in brackets, with prefix and the bound value's suffix. A name that is taken gets a counter.
excel::DefinedNamePtr ExcelNamedRangeAdd(DropReports& reports, excel::Workbook& workbook,
                                         const std::string& name, const NamedRangeContent& content = {});

}  // namespace mergeloom
