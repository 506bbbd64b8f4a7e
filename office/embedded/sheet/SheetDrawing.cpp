#include "office/embedded/sheet/SheetDrawing.h"

#include "base/AutomationError.h"
#include "office/embedded/sheet/DrawingPart.h"
#include "office/embedded/sheet/DrawingSource.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mergeloom::embedded {

namespace {

Points pointsOf(Emu emu) {
    return {static_cast<double>(emu.value) / kEmuPerPoint};
}

Emu emuOf(Points points) {
    return {std::llround(points.value * kEmuPerPoint)};
}

Emu sizeOf(Points points) {
    return std::max(emuOf(points), Emu{0});
}

bool isSame(const PictureRectangle& a, const PictureRectangle& b) {
    return a.left == b.left && a.top == b.top && a.width == b.width && a.height == b.height;
}

/// Returns the frame of a shape after the columns or rows under it changed.
PictureRectangle keptFrame(const PictureRectangle& before, const PictureRectangle& now, AnchorMode mode) {
    if (mode == AnchorMode::KeepsPlaceAndSize) return before;
    return {now.left, now.top, before.width, before.height};
}

}  // namespace

class SheetDrawing::Data {
  public:
    Data(opc::Package& package, SheetPart& sheet, const SheetGeometry& cells, PictureParts& pictures,
         UndoLog& undo)
        : geometry(cells), source(package, sheet, pictures, undo) {}

    DrawingPart& at(ShapeId shape) {
        DrawingPart* const drawing = source.find();
        if (drawing == nullptr) throw AutomationError(kObjectDeleted, "The object has been deleted.");
        (void)drawing->node(shape);
        return *drawing;
    }

    /// Returns the drawing; null also if it cannot be read, since a change of sizes must not fail because of
    /// that.
    DrawingPart* findReadable() {
        try {
            return source.find();
        } catch (const AutomationError&) {
            return nullptr;
        }
    }

    DrawingAnchor anchorOf(ShapeId shape) { return DrawingAnchor(anchorsIn(at(shape).node(shape)).front()); }
    PictureRectangle frameOf(ShapeId shape) { return anchorOf(shape).frame(geometry); }

    void setFrame(ShapeId shape, const PictureRectangle& frame) {
        DrawingPart& drawing = at(shape);
        for (const pugi::xml_node anchor : anchorsIn(drawing.node(shape)))
            DrawingAnchor(anchor).setFrame(frame, geometry, drawing.state());
        setTransforms(drawing.node(shape), frame, drawing.state());
    }

    std::string freeName(const DrawingPart& drawing);

    const SheetGeometry& geometry;
    DrawingSource source;

  private:
    std::int64_t lastPicture = 0;
};

std::string SheetDrawing::Data::freeName(const DrawingPart& drawing) {
    // Excel numbers all objects from 2 on. No number is tried twice, so that the search is short.
    lastPicture = std::max(lastPicture, drawing.freeObjectId() - 2);
    std::string name;
    do {
        name = "Picture " + std::to_string(++lastPicture);
    } while (drawing.find(name));
    return name;
}

SheetDrawing::SheetDrawing(opc::Package& package, SheetPart& sheet, const SheetGeometry& geometry,
                           PictureParts& pictures, UndoLog& undo)
    : data_(std::make_unique<Data>(package, sheet, geometry, pictures, undo)) {}

SheetDrawing::~SheetDrawing() = default;

std::vector<SheetDrawing::ShapeId> SheetDrawing::shapes() {
    const DrawingPart* const drawing = data_->source.find();
    return drawing != nullptr ? drawing->shapes() : std::vector<ShapeId>();
}

std::optional<SheetDrawing::ShapeId> SheetDrawing::find(const std::string& name) {
    const DrawingPart* const drawing = data_->source.find();
    return drawing != nullptr ? drawing->find(name) : std::nullopt;
}

bool SheetDrawing::has(ShapeId shape) {
    const DrawingPart* const drawing = data_->source.find();
    return drawing != nullptr && drawing->has(shape);
}

std::string SheetDrawing::name(ShapeId shape) {
    return data_->at(shape).name(shape);
}

ShapeKind SheetDrawing::kind(ShapeId shape) {
    return kindOfShape(data_->at(shape).node(shape));
}

ShapeFrame SheetDrawing::frame(ShapeId shape) {
    const PictureRectangle frame = data_->frameOf(shape);
    return {pointsOf(frame.left), pointsOf(frame.top), pointsOf(frame.width), pointsOf(frame.height)};
}

excel::CellPosition SheetDrawing::topLeftCell(ShapeId shape) {
    const ShapeFrame place = frame(shape);
    return data_->geometry.placeAt(place.left, place.top).cell;
}

void SheetDrawing::setName(ShapeId shape, const std::string& name) {
    data_->at(shape).setName(shape, name);
}

void SheetDrawing::setFrame(ShapeId shape, const ShapeFrame& frame) {
    const Emu left = sizeOf(frame.left);
    const Emu top = sizeOf(frame.top);
    data_->setFrame(shape, {left, top, sizeOf(frame.width), sizeOf(frame.height)});
}

void SheetDrawing::remove(ShapeId shape) {
    DrawingPart& drawing = data_->at(shape);
    data_->source.releasePictures(drawing, shape);
    drawing.remove(shape);
}

SheetDrawing::ShapeId SheetDrawing::addPicture(const excel::CellPosition& cell, std::string bytes,
                                               const opc::PictureFile& picture) {
    DrawingPart& drawing = data_->source.findOrCreate();
    const SheetPlace place{cell, {}, {}};
    AnchoredPicture anchored;
    anchored.relationshipId = data_->source.addRelationship(drawing, std::move(bytes), picture);
    anchored.name = data_->freeName(drawing);
    anchored.drawingId = drawing.freeObjectId();
    anchored.cell = cell;
    anchored.frame = {data_->geometry.left(place), data_->geometry.top(place), picture.naturalWidth(),
                      picture.naturalHeight()};
    const opc::Conformance conformance =
        drawing.isStrict() ? opc::Conformance::Strict : opc::Conformance::Transitional;
    return drawing.insert(appendAnchoredPicture(drawing.xml().root(), anchored, conformance));
}

void SheetDrawing::keepSizes(const std::function<void()>& change) {
    const DrawingPart* const drawing = data_->findReadable();
    if (drawing == nullptr || drawing->pinned().empty()) return change();
    std::vector<std::pair<ShapeId, PictureRectangle>> frames;
    for (const ShapeId shape : drawing->pinned())
        frames.emplace_back(shape, data_->frameOf(shape));
    change();
    for (const auto& [shape, before] : frames) {
        const DrawingAnchor anchor = data_->anchorOf(shape);
        const PictureRectangle now = anchor.frame(data_->geometry);
        const PictureRectangle kept = keptFrame(before, now, anchor.mode());
        if (!isSame(now, kept)) data_->setFrame(shape, kept);
    }
}

bool SheetDrawing::isDirty() const {
    return data_->source.isDirty();
}

void SheetDrawing::store() {
    data_->source.store();
}

}  // namespace mergeloom::embedded
