#include "base/AutomationError.h"
#include "office/embedded/sheet/SheetDrawing.h"

/// Drawings are written by other hands right now; until then a sheet has none and takes no pictures.
namespace mergeloom::embedded {

namespace {

[[noreturn]] void refuse() {
    throw AutomationError(kNotAvailable, "Pictures on sheets are not available yet.");
}

}  // namespace

class SheetDrawing::Data {};

SheetDrawing::SheetDrawing(Package&, SheetPart&, const SheetGeometry&, PictureParts&, UndoLog&) {}
SheetDrawing::~SheetDrawing() = default;
std::vector<SheetDrawing::ShapeId> SheetDrawing::shapes() {
    return {};
}
std::optional<SheetDrawing::ShapeId> SheetDrawing::find(const std::string&) {
    return {};
}
bool SheetDrawing::has(ShapeId) {
    return false;
}
std::string SheetDrawing::name(ShapeId) {
    refuse();
}
ShapeKind SheetDrawing::kind(ShapeId) {
    refuse();
}
ShapeFrame SheetDrawing::frame(ShapeId) {
    refuse();
}
CellPosition SheetDrawing::topLeftCell(ShapeId) {
    refuse();
}
void SheetDrawing::setName(ShapeId, const std::string&) {
    refuse();
}
void SheetDrawing::setFrame(ShapeId, const ShapeFrame&) {
    refuse();
}
void SheetDrawing::remove(ShapeId) {
    refuse();
}
SheetDrawing::ShapeId SheetDrawing::addPicture(const CellPosition&, std::string, const PictureFile&) {
    refuse();
}
bool SheetDrawing::isDirty() const {
    return false;
}
void SheetDrawing::store() {}

}  // namespace mergeloom::embedded
