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

/// Loads, creates and stores the drawing of a sheet: its part in the package, the relationship and the
/// element of the sheet that refer to it, and the relationships to its pictures.
class DrawingSource {
  public:
    /// All arguments must outlive this object.
    DrawingSource(opc::Package& package, SheetPart& sheet, PictureParts& pictures, UndoLog& undo);

    /// Returns the drawing, which the first call reads; null if the sheet has none. Raises
    /// kFileCouldNotBeRead.
    DrawingPart* find();
    DrawingPart& findOrCreate();

    [[nodiscard]] bool isDirty() const;
    void store();

    /// Adds a picture to the package and returns the id of the drawing's relationship to it.
    std::string addRelationship(DrawingPart& drawing, std::string bytes, const opc::PictureFile& picture);
    /// Removes the pictures that only this shape shows. Charts and other parts stay.
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
