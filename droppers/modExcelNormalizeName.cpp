#include "droppers/modExcelNormalizeName.h"

#include "droppers/NameRule.h"

namespace mergeloom {

namespace {

constexpr CharacterCount kLongestRangeName{255};

}  // namespace

std::string ExcelNormalizeName(std::string_view rstrName, bool vfAppendT) {
    return normalizedName(nameToNormalize(rstrName, vfAppendT), kLongestRangeName);
}

}  // namespace mergeloom
