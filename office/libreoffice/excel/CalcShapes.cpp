#include "office/libreoffice/excel/CalcShapes.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcDrawnObject.h"
#include "office/libreoffice/excel/CalcRange.h"
#include "office/model/excel/Shapes.h"

namespace mergeloom::libreoffice {

namespace {

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

}  // namespace

excel::ShapePtr CalcShapes::Item(int number) {
    const CalcShapeEntryPtr entry = table().all()[indexOf(number)];
    return std::make_shared<CalcShape>(CalcDrawnObject(content_, sheet_, entry));
}

excel::ShapePtr CalcShapes::Item(const std::string& name) {
    const CalcShapeEntryPtr entry = table().find(name);
    if (!entry) throw AutomationError(kApplicationDefined, "There is no object '" + name + "'.");
    return std::make_shared<CalcShape>(CalcDrawnObject(content_, sheet_, entry));
}

excel::PicturePtr CalcPictures::Insert(const std::string& fileName) {
    CalcSheet& sheet = content_->sheet(sheet_);
    const excel::CellPosition cell = sheet.merged().at(sheet.selection().activeCell).first;
    return std::make_shared<CalcPicture>(CalcDrawnObject::insertPicture(content_, sheet_, cell, fileName));
}

}  // namespace mergeloom::libreoffice
