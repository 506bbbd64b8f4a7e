#include "droppers/modExcelNormalizeName.h"

#include "droppers/NameRule.h"
#include "office/model/excel/DefinedNameRule.h"

namespace mergeloom {

std::string ExcelNormalizeName(std::string_view rstrName, bool vfAppendT) {
    return normalizedName(nameToNormalize(rstrName, vfAppendT), excel::kMaxDefinedName);
}

}  // namespace mergeloom
