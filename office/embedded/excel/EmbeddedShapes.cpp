#include "office/embedded/excel/EmbeddedShapes.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedCellRange.h"
#include "office/model/excel/Shapes.h"
#include "office/opc/PictureFile.h"

namespace mergeloom::embedded {

namespace {

/// Raises kApplicationDefined for a sheet whose objects are protected.
void checkObjectsMayChange(const SheetContent& sheet) {
    if (!sheet.protection().objects) return;
    throw AutomationError(kApplicationDefined, "The sheet '" + sheet.entry().name +
                                                   "' is protected: its pictures cannot be changed.");
}

/// An object on a sheet's drawing layer, shared by shapes and pictures. Every member raises kObjectDeleted
/// after the object was deleted.
class DrawnObject {
  public:
    DrawnObject(std::shared_ptr<WorkbookContent> content, std::size_t sheet, SheetDrawing::ShapeId shape);

    [[nodiscard]] const std::shared_ptr<WorkbookContent>& content() const { return content_; }
    [[nodiscard]] std::size_t sheet() const { return sheet_; }

    [[nodiscard]] std::string name() const;
    [[nodiscard]] ShapeKind kind() const;
    [[nodiscard]] excel::CellPosition topLeftCell() const;
    [[nodiscard]] ShapeFrame frame() const;

    /// Changes raise kApplicationDefined for a sheet whose objects are protected.
    void setName(const std::string& name) const;
    void setFrame(const ShapeFrame& frame) const;
    void remove() const;

  private:
    [[nodiscard]] SheetDrawing& drawing() const;
    [[nodiscard]] SheetDrawing& changedDrawing() const;

    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
    SheetDrawing::ShapeId shape_;
};

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

class EmbeddedShape final : public excel::Shape {
  public:
    EmbeddedShape(std::shared_ptr<WorkbookContent> content, std::size_t sheet, SheetDrawing::ShapeId shape)
        : object_(std::move(content), sheet, shape) {}

    std::string Name() override { return object_.name(); }
    excel::MsoShapeType Type() override;
    excel::RangePtr TopLeftCell() override;
    Points Left() override { return object_.frame().left; }
    Points Top() override { return object_.frame().top; }
    Points Width() override { return object_.frame().width; }
    Points Height() override { return object_.frame().height; }
    void Delete() override { object_.remove(); }

  private:
    DrawnObject object_;
};

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

class EmbeddedPicture final : public excel::Picture {
  public:
    EmbeddedPicture(std::shared_ptr<WorkbookContent> content, std::size_t sheet, SheetDrawing::ShapeId shape)
        : object_(std::move(content), sheet, shape) {}

    std::string Name() override { return object_.name(); }
    void SetName(const std::string& name) override { object_.setName(name); }
    Points Left() override { return object_.frame().left; }
    void SetLeft(Points left) override { change(&ShapeFrame::left, left); }
    Points Top() override { return object_.frame().top; }
    void SetTop(Points top) override { change(&ShapeFrame::top, top); }
    Points Width() override { return object_.frame().width; }
    void SetWidth(Points width) override { change(&ShapeFrame::width, width); }
    Points Height() override { return object_.frame().height; }
    void SetHeight(Points height) override { change(&ShapeFrame::height, height); }

  private:
    void change(Points ShapeFrame::*side, Points value) const {
        ShapeFrame frame = object_.frame();
        frame.*side = value;
        object_.setFrame(frame);
    }

    DrawnObject object_;
};

}  // namespace

/// Checks the relationships before the sheet is read, so that listing all shapes does not read sheets without
/// any.
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

excel::PicturePtr EmbeddedPictures::Insert(const std::string& fileName) {
    SheetContent& sheet = content_->sheet(sheet_);
    checkObjectsMayChange(sheet);
    std::string bytes = content_->files().read(fileName);
    const opc::PictureFile picture = opc::PictureFile::read(bytes, fileName);
    const excel::CellPosition cell = sheet.merged().areaAt(sheet.selection().activeCell).first;
    content_->touch();
    const SheetDrawing::ShapeId shape = sheet.drawing().addPicture(cell, std::move(bytes), picture);
    return std::make_shared<EmbeddedPicture>(content_, sheet_, shape);
}

}  // namespace mergeloom::embedded
