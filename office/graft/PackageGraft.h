#pragma once

#include "office/model/PackageGraft.h"

#include <memory>

namespace mergeloom::graft {

/// Returns the graft of Open Packaging files for all kinds of documents that it covers.
std::unique_ptr<model::PackageGraft> makePackageGraft();

}  // namespace mergeloom::graft
