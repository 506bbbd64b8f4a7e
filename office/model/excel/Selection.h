#pragma once

#include "base/AutomationError.h"
#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// What is selected: cells, or an object that is none.
class Selection : public Object {
  public:
    /// "Range" for cells, of one area or several; else the kind of the object, such as "Picture" or
    /// "ChartArea".
    virtual std::string TypeName() = 0;
    /// Writes the text into every selected cell; errors as for Range.SetValue, and for an object without
    /// cells.
    virtual void SetValue2(const std::string& text) = 0;
};

/// The selection of a sheet without cells.
class ChartSelection final : public Selection {
  public:
    std::string TypeName() override { return "ChartArea"; }
    void SetValue2(const std::string& /*text*/) override {
        throw AutomationError(kApplicationDefined, "The active sheet has no cells.");
    }
};

}  // namespace mergeloom::excel
