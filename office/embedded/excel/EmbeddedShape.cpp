#include "office/embedded/excel/EmbeddedShape.h"

#include "office/embedded/excel/EmbeddedCellRange.h"

namespace mergeloom::embedded {

excel::MsoShapeType EmbeddedShape::Type() {
    switch (object_.kind()) {
        case ShapeKind::Picture:
            return excel::MsoShapeType::msoPicture;
        case ShapeKind::Chart:
            return excel::MsoShapeType::msoChart;
        default:
            return excel::MsoShapeType::msoShapeTypeMixed;
    }
}

excel::RangePtr EmbeddedShape::TopLeftCell() {
    const excel::CellPosition cell = object_.topLeftCell();
    return rangeOf(object_.content(), object_.sheet(), {cell, cell});
}

}  // namespace mergeloom::embedded
