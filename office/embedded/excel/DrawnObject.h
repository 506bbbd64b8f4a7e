#pragma once

#include "office/embedded/excel/WorkbookContent.h"

#include <cstddef>
#include <memory>
#include <string>

namespace mergeloom::embedded {

/// An object on a sheet's drawing layer, as shapes and pictures hold it. Every member raises kObjectDeleted
/// once it is gone.
class DrawnObject {
  public:
    DrawnObject(std::shared_ptr<WorkbookContent> content, std::size_t sheet, SheetDrawing::ShapeId shape);

    [[nodiscard]] const std::shared_ptr<WorkbookContent>& content() const { return content_; }
    [[nodiscard]] std::size_t sheet() const { return sheet_; }

    [[nodiscard]] std::string name() const;
    [[nodiscard]] ShapeKind kind() const;
    [[nodiscard]] excel::CellPosition topLeftCell() const;
    [[nodiscard]] ShapeFrame frame() const;

    /// These raise kApplicationDefined for a sheet whose objects are protected.
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

/// Raises kApplicationDefined for a sheet whose objects are protected.
void checkObjectsMayChange(const SheetContent& sheet);

}  // namespace mergeloom::embedded
