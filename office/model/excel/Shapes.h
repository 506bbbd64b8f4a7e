#pragma once

#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// The objects on the drawing layer of a sheet, in their order from back to front.
class Shapes : public Counted {
  public:
    /// Raises kApplicationDefined for a number outside 1 to Count.
    virtual ShapePtr Item(int number) = 0;
    /// The first one of that name, letter case aside. Raises kApplicationDefined when there is none.
    virtual ShapePtr Item(const std::string& name) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kApplicationDefined, "There is no object of that number.");
    }
};

}  // namespace mergeloom::excel
