#include "office/embedded/excel/DrawnObject.h"

#include "base/AutomationError.h"

#include <utility>

namespace mergeloom::embedded {

DrawnObject::DrawnObject(std::shared_ptr<WorkbookContent> content, std::size_t sheet,
                         SheetDrawing::ShapeId shape)
    : content_(std::move(content)), sheet_(sheet), shape_(shape) {}

std::string DrawnObject::name() const {
    return drawing().name(shape_);
}

ShapeKind DrawnObject::kind() const {
    return drawing().kind(shape_);
}

excel::CellPosition DrawnObject::topLeftCell() const {
    return drawing().topLeftCell(shape_);
}

ShapeFrame DrawnObject::frame() const {
    return drawing().frame(shape_);
}

void DrawnObject::setName(const std::string& name) const {
    changedDrawing().setName(shape_, name);
}

void DrawnObject::setFrame(const ShapeFrame& frame) const {
    changedDrawing().setFrame(shape_, frame);
}

void DrawnObject::remove() const {
    changedDrawing().remove(shape_);
}

SheetDrawing& DrawnObject::drawing() const {
    SheetDrawing& drawing = content_->sheet(sheet_).drawing();
    if (!drawing.has(shape_)) throw AutomationError(kObjectDeleted, "The object has been deleted.");
    return drawing;
}

SheetDrawing& DrawnObject::changedDrawing() const {
    SheetDrawing& changed = drawing();
    checkObjectsMayChange(content_->sheet(sheet_));
    content_->touch();
    return changed;
}

void checkObjectsMayChange(const SheetContent& sheet) {
    if (!sheet.protection().objects) return;
    throw AutomationError(kApplicationDefined, "The sheet '" + sheet.entry().name +
                                                   "' is protected: its pictures cannot be changed.");
}

}  // namespace mergeloom::embedded
