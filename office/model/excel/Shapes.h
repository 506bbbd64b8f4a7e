#pragma once

#include "base/Units.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// An object on the drawing layer of a sheet. Every member raises kObjectDeleted once it is gone.
class Shape : public Object {
  public:
    virtual std::string Name() = 0;
    virtual MsoShapeType Type() = 0;
    /// Returns the cell under the object's upper left corner.
    virtual RangePtr TopLeftCell() = 0;
    virtual Points Left() = 0;
    virtual Points Top() = 0;
    virtual Points Width() = 0;
    virtual Points Height() = 0;
    virtual void Delete() = 0;
};

/// The objects on the drawing layer of a sheet, in their order from back to front.
class Shapes : public Counted {
  public:
    /// Raises kApplicationDefined for a number outside 1 to Count.
    virtual ShapePtr Item(int number) = 0;
    /// Returns the first one of that name, regardless of letter case. Raises kApplicationDefined when there
    /// is none.
    virtual ShapePtr Item(const std::string& name) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kApplicationDefined, "There is no object of that number.");
    }
};

/// A picture on a sheet. It moves with the cells under it and keeps its size. Width and height change
/// independently. Every member raises kObjectDeleted once it is gone.
class Picture : public Object {
  public:
    virtual std::string Name() = 0;
    virtual void SetName(const std::string& name) = 0;
    virtual Points Left() = 0;
    virtual void SetLeft(Points left) = 0;
    virtual Points Top() = 0;
    virtual void SetTop(Points top) = 0;
    virtual Points Width() = 0;
    virtual void SetWidth(Points width) = 0;
    virtual Points Height() = 0;
    virtual void SetHeight(Points height) = 0;
};

/// The pictures of a sheet.
class Pictures : public Object {
  public:
    /// Inserts a picture from a file at the active cell, in its natural size. Raises kFileCouldNotBeRead with
    /// a sentence that names the file when it is no picture, and kApplicationDefined for a protected sheet.
    virtual PicturePtr Insert(const std::string& fileName) = 0;
};

}  // namespace mergeloom::excel
