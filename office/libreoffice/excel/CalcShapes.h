#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/Shapes.h"

#include <cstddef>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcShapes final : public excel::Shapes {
  public:
    CalcShapes(CalcContentPtr content, std::size_t sheet) : content_(std::move(content)), sheet_(sheet) {}

    int Count() override { return static_cast<int>(table().all().size()); }
    excel::ShapePtr Item(int number) override;
    excel::ShapePtr Item(const std::string& name) override;

  private:
    [[nodiscard]] CalcShapeTable& table() const { return content_->sheet(sheet_).shapes(); }

    CalcContentPtr content_;
    std::size_t sheet_;
};

class CalcPictures final : public excel::Pictures {
  public:
    CalcPictures(CalcContentPtr content, std::size_t sheet) : content_(std::move(content)), sheet_(sheet) {}

    excel::PicturePtr Insert(const std::string& fileName) override;

  private:
    CalcContentPtr content_;
    std::size_t sheet_;
};

}  // namespace mergeloom::libreoffice
