#include "base/LocalTime.h"

namespace mergeloom {

std::optional<std::tm> localTime(std::time_t time) {
    std::tm local{};
    if (::localtime_s(&local, &time) != 0) return std::nullopt;
    return local;
}

}  // namespace mergeloom
