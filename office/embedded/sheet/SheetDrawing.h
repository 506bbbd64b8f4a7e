#pragma once

#include "base/Units.h"
#include "office/embedded/parts/PictureParts.h"
#include "office/embedded/sheet/DrawingElements.h"
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

/// The drawing of a sheet (ECMA-376 Part 1, 20.5): the objects anchored to its cells. It is read on first
/// use; a sheet without one gets it with its first picture. A shape is identified by a number that no other
/// shape of the drawing ever has.
class SheetDrawing {
  public:
    using ShapeId = std::int64_t;

    /// All arguments must outlive this object. Members that use the drawing raise kFileCouldNotBeRead if its
    /// part cannot be read, and kObjectDeleted for a shape that does not exist.
    SheetDrawing(opc::Package& package, SheetPart& sheet, const SheetGeometry& geometry,
                 PictureParts& pictures, UndoLog& undo);
    ~SheetDrawing();

    /// Returns the shapes from back to front. A group is one shape.
    [[nodiscard]] std::vector<ShapeId> shapes();
    /// Returns the first shape of that name, ignoring case.
    [[nodiscard]] std::optional<ShapeId> find(const std::string& name);
    [[nodiscard]] bool has(ShapeId shape);

    [[nodiscard]] std::string name(ShapeId shape);
    [[nodiscard]] ShapeKind kind(ShapeId shape);
    /// Returns the rectangle of the shape's anchor: one cell and a size, two cells, or absolute.
    [[nodiscard]] ShapeFrame frame(ShapeId shape);
    [[nodiscard]] excel::CellPosition topLeftCell(ShapeId shape);

    void setName(ShapeId shape, const std::string& name);
    /// Moves and sizes a shape. Its anchor keeps its kind.
    void setFrame(ShapeId shape, const ShapeFrame& frame);
    /// Removes a shape. The part of a picture that nothing else shows is removed too.
    void remove(ShapeId shape);
    /// Adds a picture anchored to one cell, in its natural size, in front of all other shapes.
    ShapeId addPicture(const excel::CellPosition& cell, std::string bytes, const opc::PictureFile& picture);

    /// Runs a change of the sheet's widths or heights and restores the frames of the shapes that keep their
    /// size, or place and size. A shape anchored to one cell needs no help.
    void keepSizes(const std::function<void()>& change);

    [[nodiscard]] bool isDirty() const;
    /// Writes the edited part into the package.
    void store();

  private:
    class Data;
    std::unique_ptr<Data> data_;
};

}  // namespace mergeloom::embedded
