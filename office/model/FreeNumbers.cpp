#include "office/model/FreeNumbers.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>

namespace mergeloom::model {

std::int64_t& FreeNumbers::takenBelow(const std::string& stem) {
    return takenBelow_.try_emplace(foldCase(stem), 1).first->second;
}

void FreeNumbers::release(const std::string& name) {
    const std::string folded = foldCase(name);
    // "A12" is counter 12 of the stem "A" and counter 2 of "A1".
    for (std::size_t digits = folded.find_last_not_of("0123456789") + 1; digits < folded.size(); ++digits) {
        std::int64_t counter = 0;
        const char* const end = folded.data() + folded.size();
        const bool fits = std::from_chars(folded.data() + digits, end, counter).ec == std::errc();
        if (!fits || folded[digits] == '0') continue;
        const auto stem = takenBelow_.find(folded.substr(0, digits));
        if (stem != takenBelow_.end()) stem->second = std::min(stem->second, counter);
    }
}

}  // namespace mergeloom::model
