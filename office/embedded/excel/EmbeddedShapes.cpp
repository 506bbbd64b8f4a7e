#include "office/embedded/excel/EmbeddedShapes.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedShape.h"

namespace mergeloom::embedded {

/// Asked before the sheet is read: a list of all shapes need not read the sheets that have none.
bool EmbeddedShapes::hasDrawing() const {
    const std::string& part = content_->workbook().sheets()[sheet_].partName;
    return !content_->package().relationshipsOf(part).ofOfficeType("drawing").empty();
}

int EmbeddedShapes::Count() {
    return hasDrawing() ? static_cast<int>(drawing().shapes().size()) : 0;
}

excel::ShapePtr EmbeddedShapes::Item(int number) {
    const std::size_t index = indexOf(number);
    const SheetDrawing::ShapeId shape = drawing().shapes()[index];
    return std::make_shared<EmbeddedShape>(content_, sheet_, shape);
}

excel::ShapePtr EmbeddedShapes::Item(const std::string& name) {
    const auto shape = hasDrawing() ? drawing().find(name) : std::nullopt;
    if (!shape) throw AutomationError(kApplicationDefined, "There is no object '" + name + "'.");
    return std::make_shared<EmbeddedShape>(content_, sheet_, *shape);
}

}  // namespace mergeloom::embedded
