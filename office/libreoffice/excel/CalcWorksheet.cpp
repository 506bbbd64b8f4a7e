#include "office/libreoffice/excel/CalcWorksheet.h"

#include "office/libreoffice/excel/CalcPictures.h"
#include "office/libreoffice/excel/CalcRange.h"
#include "office/libreoffice/excel/CalcShapes.h"

namespace mergeloom::libreoffice {

excel::RangePtr CalcWorksheet::Cells(int row, int column) {
    return calcRangeOf(content_, sheet_, {{row, column}, {row, column}});
}

excel::ShapesPtr CalcWorksheet::Shapes() {
    return std::make_shared<CalcShapes>(content_, sheet_);
}

excel::PicturesPtr CalcWorksheet::Pictures() {
    return std::make_shared<CalcPictures>(content_, sheet_);
}

}  // namespace mergeloom::libreoffice
