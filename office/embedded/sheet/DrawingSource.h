#pragma once

#include "office/embedded/parts/PictureParts.h"
#include "office/embedded/sheet/DrawingPart.h"
#include "office/embedded/sheet/SheetPart.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/opc/Package.h"
#include "office/opc/PictureFile.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

/// Where the drawing of a sheet comes from and goes to: its part in the package, the relationship and the
/// element of the sheet that lead there, and the relationships to its pictures.
class DrawingSource {
  public:
    /// All must outlive the source.
    DrawingSource(opc::Package& package, SheetPart& sheet, PictureParts& pictures, UndoLog& undo);

    /// The drawing, which is read when it is asked for first; null for a sheet without one. Raises
    /// kFileCouldNotBeRead.
    DrawingPart* find();
    DrawingPart& findOrCreate();

    [[nodiscard]] bool isDirty() const;
    void store();

    /// The id of a relationship from the drawing to the picture.
    std::string addRelationship(DrawingPart& drawing, std::string bytes, const opc::PictureFile& picture);
    /// Takes out what nothing but the shape shows. Charts and other parts stay.
    void releasePictures(DrawingPart& drawing, DrawingPart::ShapeId shape);

  private:
    void load();
    void create();
    [[nodiscard]] std::string freePartName() const;
    void releasePicture(const std::string& source, const std::string& relationshipId);

    opc::Package& package_;
    SheetPart& sheet_;
    PictureParts& pictures_;
    UndoLog& undo_;
    DrawingPart::ShapeId lastShape_ = 0;
    std::unique_ptr<DrawingPart> part_;
};

}  // namespace mergeloom::embedded
