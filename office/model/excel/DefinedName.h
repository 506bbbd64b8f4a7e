#pragma once

#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// Excel's Name object; a class in C++ can have no member of its own name.
class DefinedName : public Object {
  public:
    /// The name; that of a sheet stands behind the sheet's name and "!".
    virtual std::string Name() = 0;
    /// Whether dialogs show the name.
    virtual bool Visible() = 0;
    /// The formula, with "=" before it.
    virtual std::string RefersToLocal() = 0;
    virtual void SetRefersToLocal(const std::string& formula) = 0;
    /// The cells that the name stands for. Raises kApplicationDefined for a name that stands for a constant,
    /// a formula, cells of another workbook, or nothing any more (#REF!).
    virtual RangePtr RefersToRange() = 0;
};

}  // namespace mergeloom::excel
