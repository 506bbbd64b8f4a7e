#pragma once

#include "office/model/PackageGraft.h"

#include <optional>
#include <string>

namespace mergeloom::graft {

/// The graft for Word documents. See PackageGraft for the members.
model::GraftResult graftDocument(const model::EditedPackage& package);
std::optional<model::GraftRefusal> findFaultInDocument(const model::EditedPackage& package,
                                                       const std::string& editedAgain,
                                                       const std::string& proof);

}  // namespace mergeloom::graft
