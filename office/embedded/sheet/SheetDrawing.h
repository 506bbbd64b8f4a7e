#pragma once

#include "base/Units.h"
#include "office/embedded/parts/PictureParts.h"
#include "office/embedded/sheet/DrawnElement.h"
#include "office/embedded/sheet/SheetGeometry.h"
#include "office/embedded/sheet/SheetPart.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/opc/Package.h"
#include "office/opc/PictureFile.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// A rectangle on the sheet.
struct ShapeFrame {
    Points left;
    Points top;
    Points width;
    Points height;
};

/// The drawing of a sheet (ECMA-376 Part 1, 20.5): the objects anchored to its cells. It is read when it is
/// asked for first; a sheet without one gets it with its first picture. A shape is known by a number that no
/// other shape of the drawing ever has.
class SheetDrawing {
  public:
    using ShapeId = std::int64_t;

    /// All must outlive the drawing. Every member that asks for the drawing raises kFileCouldNotBeRead when
    /// its part cannot be read, and kObjectDeleted for a shape that the drawing does not have.
    SheetDrawing(opc::Package& package, SheetPart& sheet, const SheetGeometry& geometry,
                 PictureParts& pictures, UndoLog& undo);
    SheetDrawing(const SheetDrawing&) = delete;
    SheetDrawing& operator=(const SheetDrawing&) = delete;
    ~SheetDrawing();

    /// The shapes from back to front. A group is one shape.
    [[nodiscard]] std::vector<ShapeId> shapes();
    /// The first one of that name, letter case aside.
    [[nodiscard]] std::optional<ShapeId> find(const std::string& name);
    [[nodiscard]] bool has(ShapeId shape);

    [[nodiscard]] std::string name(ShapeId shape);
    [[nodiscard]] ShapeKind kind(ShapeId shape);
    /// By its anchor: one cell and a size, two cells, or absolute.
    [[nodiscard]] ShapeFrame frame(ShapeId shape);
    [[nodiscard]] excel::CellPosition topLeftCell(ShapeId shape);

    void setName(ShapeId shape, const std::string& name);
    /// Moves and sizes a shape. Its anchor keeps its kind.
    void setFrame(ShapeId shape, const ShapeFrame& frame);
    /// Takes the anchor with all that it holds out. A picture's part that nothing else shows goes with it.
    void remove(ShapeId shape);
    /// Adds a picture anchored to one cell, in its natural size, in front of all others.
    ShapeId addPicture(const excel::CellPosition& cell, std::string bytes, const opc::PictureFile& picture);

    /// Runs a change of widths or heights of the sheet, after which the shapes that are to keep their sizes
    /// (or their places as well) still do so. What is anchored to one cell moves with it by itself.
    void keepSizes(const std::function<void()>& change);

    [[nodiscard]] bool isDirty() const;
    /// Hands the edited part to the package.
    void store();

  private:
    class Data;
    std::unique_ptr<Data> data_;
};

}  // namespace mergeloom::embedded
