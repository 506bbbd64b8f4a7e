#pragma once

#include "office/libreoffice/excel/CalcDrawnObject.h"
#include "office/libreoffice/excel/CalcRange.h"
#include "office/model/excel/Shape.h"

#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcShape final : public excel::Shape {
  public:
    explicit CalcShape(CalcDrawnObject object) : object_(std::move(object)) {}

    std::string Name() override { return object_.name(); }
    excel::MsoShapeType Type() override { return object_.type(); }
    excel::RangePtr TopLeftCell() override {
        const excel::CellPosition cell = object_.topLeftCell();
        return calcRangeOf(object_.content(), object_.sheet(), {cell, cell});
    }
    Points Left() override { return object_.left(); }
    Points Top() override { return object_.top(); }
    Points Width() override { return object_.width(); }
    Points Height() override { return object_.height(); }
    void Delete() override { object_.remove(); }

  private:
    CalcDrawnObject object_;
};

}  // namespace mergeloom::libreoffice
