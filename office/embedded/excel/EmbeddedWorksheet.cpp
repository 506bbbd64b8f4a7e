#include "office/embedded/excel/EmbeddedWorksheet.h"

#include "office/embedded/excel/EmbeddedCellRange.h"
#include "office/embedded/excel/EmbeddedPictures.h"
#include "office/embedded/excel/EmbeddedShapes.h"

namespace mergeloom::embedded {

excel::RangePtr EmbeddedWorksheet::Cells(int row, int column) {
    return rangeOf(content_, sheet_, {{row, column}, {row, column}});
}

excel::ShapesPtr EmbeddedWorksheet::Shapes() {
    return std::make_shared<EmbeddedShapes>(content_, sheet_);
}

excel::PicturesPtr EmbeddedWorksheet::Pictures() {
    return std::make_shared<EmbeddedPictures>(content_, sheet_);
}

}  // namespace mergeloom::embedded
