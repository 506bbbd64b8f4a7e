#pragma once

#include "office/libreoffice/excel/CalcDrawnObject.h"
#include "office/model/excel/Picture.h"

#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcPicture final : public excel::Picture {
  public:
    explicit CalcPicture(CalcDrawnObject object) : object_(std::move(object)) {}

    std::string Name() override { return object_.name(); }
    void SetName(const std::string& name) override { object_.setName(name); }
    Points Left() override { return object_.left(); }
    void SetLeft(Points left) override { object_.setLeft(left); }
    Points Top() override { return object_.top(); }
    void SetTop(Points top) override { object_.setTop(top); }
    Points Width() override { return object_.width(); }
    void SetWidth(Points width) override { object_.setWidth(width); }
    Points Height() override { return object_.height(); }
    void SetHeight(Points height) override { object_.setHeight(height); }

  private:
    CalcDrawnObject object_;
};

}  // namespace mergeloom::libreoffice
