#pragma once

#include "office/model/PackageGraft.h"

#include <memory>
#include <string>

namespace mergeloom::graft {

/// Returns the graft of Open Packaging files for all kinds of documents that it covers.
std::unique_ptr<model::PackageGraft> makePackageGraft();

/// Returns how many of the entries of a package are those of the original, byte for byte as they are packed.
/// Folders do not count.
model::KeptEntries keptEntries(const std::string& original, const std::string& grafted);

}  // namespace mergeloom::graft
