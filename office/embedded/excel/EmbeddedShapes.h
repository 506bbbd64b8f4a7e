#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/Shapes.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

class EmbeddedShapes final : public excel::Shapes {
  public:
    EmbeddedShapes(std::shared_ptr<WorkbookContent> content, std::size_t sheet)
        : content_(std::move(content)), sheet_(sheet) {}

    int Count() override;
    excel::ShapePtr Item(int number) override;
    excel::ShapePtr Item(const std::string& name) override;

  private:
    [[nodiscard]] SheetDrawing& drawing() const { return content_->sheet(sheet_).drawing(); }
    [[nodiscard]] bool hasDrawing() const;

    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
};

class EmbeddedPictures final : public excel::Pictures {
  public:
    EmbeddedPictures(std::shared_ptr<WorkbookContent> content, std::size_t sheet)
        : content_(std::move(content)), sheet_(sheet) {}

    excel::PicturePtr Insert(const std::string& fileName) override;

  private:
    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
};

}  // namespace mergeloom::embedded
