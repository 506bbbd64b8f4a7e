#pragma once

#include <source_location>
#include <string>

namespace mergeloom {

/// Returns a place of the source as "base/Trap.h:12". The build makes file names relative to the project.
inline std::string shownPlace(const std::source_location& place) {
    return place.file_name() + (":" + std::to_string(place.line()));
}

}  // namespace mergeloom
