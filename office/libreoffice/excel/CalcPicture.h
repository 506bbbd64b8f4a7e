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
    Points Left() override { return pointsOf(object_.place().X); }
    void SetLeft(Points left) override { object_.setPlace({lengthOf(left), object_.place().Y}); }
    Points Top() override { return pointsOf(object_.place().Y); }
    void SetTop(Points top) override { object_.setPlace({object_.place().X, lengthOf(top)}); }
    Points Width() override { return pointsOf(object_.size().Width); }
    void SetWidth(Points width) override { object_.setSize({lengthOf(width), object_.size().Height}); }
    Points Height() override { return pointsOf(object_.size().Height); }
    void SetHeight(Points height) override { object_.setSize({object_.size().Width, lengthOf(height)}); }

  private:
    CalcDrawnObject object_;
};

}  // namespace mergeloom::libreoffice
