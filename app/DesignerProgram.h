#pragma once

#include <span>
#include <string>

namespace mergeloom {

/// Replaces this process by the designer, a program in the same folder or in ../lib/mergeloom.
/// Returns only when that fails: raises kNotAvailable with a sentence that says what to install or to do
/// instead.
int execDesigner(std::span<const std::string> arguments);

}  // namespace mergeloom
