#pragma once

#include "droppers/FieldSelection.h"

namespace mergeloom {

/// The window over the list of fields.
class FieldDialog {
  public:
    FieldDialog() = default;
    FieldDialog(const FieldDialog&) = delete;
    FieldDialog& operator=(const FieldDialog&) = delete;
    virtual ~FieldDialog() = default;

    /// Shows the list until the user inserts what is selected or closes the window.
    virtual void Show(FieldSelection& fields) = 0;
};

}  // namespace mergeloom
