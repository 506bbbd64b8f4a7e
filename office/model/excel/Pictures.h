#pragma once

#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// The pictures of a sheet.
class Pictures : public Object {
  public:
    /// Puts a picture from a file at the active cell, in its natural size. Raises kFileCouldNotBeRead with a
    /// sentence that names the file when it is no picture, and kApplicationDefined for a protected sheet.
    virtual PicturePtr Insert(const std::string& fileName) = 0;
};

}  // namespace mergeloom::excel
