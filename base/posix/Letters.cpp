#include "base/Text.h"

#include <unicode/uchar.h>

namespace mergeloom {

char32_t foldedCodePoint(char32_t codePoint) {
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(codePoint), U_FOLD_CASE_DEFAULT));
}

bool isLongNameLetter(char32_t codePoint) {
    constexpr char32_t kLastOfOneUnit = 0xFFFF;
    return codePoint <= kLastOfOneUnit && u_isalpha(static_cast<UChar32>(codePoint)) != 0;
}

}  // namespace mergeloom
