#pragma once

#include <filesystem>
#include <string>

namespace mergeloom {

/// Returns a path in the form that the standard library's routines on files need. On Windows that is UTF-16,
/// and for a path of more than 247 characters the form that has no bound.
std::filesystem::path systemPath(const std::string& path);

}  // namespace mergeloom
