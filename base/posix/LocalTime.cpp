#include "base/LocalTime.h"

namespace mergeloom {

std::optional<std::tm> localTime(std::time_t time) {
    std::tm local{};
    if (::localtime_r(&time, &local) == nullptr) return std::nullopt;
    return local;
}

}  // namespace mergeloom
