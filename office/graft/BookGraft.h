#pragma once

#include "office/model/PackageGraft.h"

#include <optional>
#include <string>

namespace mergeloom::graft {

/// The graft for workbooks. See PackageGraft for the members.
model::GraftResult graftBook(const model::EditedPackage& package);
std::optional<model::GraftRefusal> findFaultInBook(const model::EditedPackage& package,
                                                   const std::string& editedAgain, const std::string& proof);

}  // namespace mergeloom::graft
