#pragma once

#include "office/embedded/sheet/SheetPart.h"

namespace mergeloom::embedded {

/// What a protected sheet forbids (ECMA-376 Part 1, 18.3.1.85); nothing where the sheet is not protected. The
/// attributes that say what is locked are named in the positive here: true forbids.
struct SheetProtection {
    bool contents = false;  ///< cells whose format is locked
    bool objects = false;
    bool formatColumns = false;
    bool formatRows = false;
};

SheetProtection readProtection(const SheetPart& sheet);

}  // namespace mergeloom::embedded
