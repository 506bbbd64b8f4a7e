#pragma once

#include <string>
#include <string_view>

namespace mergeloom::embedded {

struct ShiftedFormula {
    std::string text;
    /// Whether a reference left the sheet; it stands as #REF! in the text.
    bool leftSheet = false;
};

/// A formula as it reads in a cell so many rows below and columns to the right: relative references move,
/// absolute ones and everything else stay.
ShiftedFormula shiftFormula(std::string_view formula, int rows, int columns);

}  // namespace mergeloom::embedded
