#pragma once

#include "office/embedded/excel/DrawnObject.h"
#include "office/model/excel/Picture.h"

#include <string>
#include <utility>

namespace mergeloom::embedded {

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

}  // namespace mergeloom::embedded
