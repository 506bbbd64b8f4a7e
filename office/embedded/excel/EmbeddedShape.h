#pragma once

#include "office/embedded/excel/DrawnObject.h"
#include "office/model/excel/Shape.h"

#include <string>
#include <utility>

namespace mergeloom::embedded {

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

}  // namespace mergeloom::embedded
