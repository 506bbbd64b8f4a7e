#include "office/embedded/excel/EmbeddedPictures.h"

#include "office/embedded/excel/EmbeddedPicture.h"
#include "office/opc/PictureFile.h"

namespace mergeloom::embedded {

excel::PicturePtr EmbeddedPictures::Insert(const std::string& fileName) {
    SheetContent& sheet = content_->sheet(sheet_);
    checkObjectsMayChange(sheet);
    std::string bytes = content_->files().read(fileName);
    const opc::PictureFile picture = opc::PictureFile::read(bytes, fileName);
    const excel::CellPosition cell = sheet.merged().areaAt(sheet.selection().activeCell).first;
    content_->touch();
    const SheetDrawing::ShapeId shape = sheet.drawing().addPicture(cell, std::move(bytes), picture);
    return std::make_shared<EmbeddedPicture>(content_, sheet_, shape);
}

}  // namespace mergeloom::embedded
