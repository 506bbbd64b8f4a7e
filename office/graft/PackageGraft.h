#pragma once

#include "office/model/PackageGraft.h"

#include <memory>

namespace mergeloom::graft {

/// Returns the graft for the kinds of Open Packaging files that can be grafted.
std::unique_ptr<model::PackageGraft> makePackageGraft();

}  // namespace mergeloom::graft
