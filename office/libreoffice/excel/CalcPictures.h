#pragma once

#include "office/libreoffice/excel/CalcPicture.h"
#include "office/model/excel/Pictures.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcPictures final : public excel::Pictures {
  public:
    CalcPictures(CalcContentPtr content, std::size_t sheet) : content_(std::move(content)), sheet_(sheet) {}

    excel::PicturePtr Insert(const std::string& fileName) override {
        CalcSheet& sheet = content_->sheet(sheet_);
        const excel::CellPosition cell = sheet.merged().at(sheet.selection().activeCell).first;
        return std::make_shared<CalcPicture>(
            CalcDrawnObject::insertPicture(content_, sheet_, cell, fileName));
    }

  private:
    CalcContentPtr content_;
    std::size_t sheet_;
};

}  // namespace mergeloom::libreoffice
