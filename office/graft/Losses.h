#pragma once

#include <string>

namespace mergeloom::graft {

/// Returns a list of the features that a package has and an office's export of it lacks, such as "content
/// controls, custom XML". Returns an empty text if none is lost, and for damaged packages.
std::string lossesBetween(const std::string& original, const std::string& exported);

}  // namespace mergeloom::graft
