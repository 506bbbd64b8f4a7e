#pragma once

#include <string>

namespace mergeloom::graft {

/// Returns what a package holds that an office's export of it lacks, such as "3 content controls, custom
/// XML"; empty when nothing of the kind that people miss is lost. Damaged packages lose nothing.
std::string lossesBetween(const std::string& original, const std::string& exported);

}  // namespace mergeloom::graft
