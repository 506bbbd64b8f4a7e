#pragma once

#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

/// The pictures that stand in the text of a range, one character each.
class InlineShapes : public Counted {
  public:
    /// InlineShapes.AddPicture with the file name only: the picture is embedded, replaces the text of a range
    /// that is not empty and takes the size that its pixels and resolution give, never wider than the text
    /// area. Raises kFileCouldNotBeRead when the file is missing or no picture.
    virtual void AddPicture(const std::string& fileName) = 0;
};

}  // namespace mergeloom::word
