#pragma once

#include "office/formats/FormatTable.h"
#include "office/model/PackageGraft.h"
#include "office/opc/Package.h"

namespace mergeloom::graft {

/// Returns the result for a document that was not changed: nothing, or the original in the other format in
/// which it is saved.
model::GraftResult unchanged(const model::EditedPackage& package, DocumentFamily family);

/// Returns the edited original in the format in which it is saved.
model::GraftResult savedOriginal(opc::Package& original, const model::EditedPackage& package,
                                 DocumentFamily family);

/// Returns true if the office wrote the original itself, so that saving loses nothing.
bool isExportOfOffice(const model::EditedPackage& package);

}  // namespace mergeloom::graft
