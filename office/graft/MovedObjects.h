#pragma once

#include "office/graft/ExportedSheet.h"
#include "office/graft/ObjectPlace.h"
#include "office/opc/Package.h"

#include <string>
#include <vector>

namespace mergeloom::graft {

/// Returns the places of the objects in the drawing of a sheet; empty if it has no drawing. Raises
/// kFileCouldNotBeRead.
std::vector<ObjectPlace> placesInOriginal(const std::string& bytes, const std::string& fileName,
                                          const std::string& sheetName);

/// Returns true if the user moved or sized an object, a comment's box or a control between two exports of a
/// sheet. The second export has the same objects, and possibly more after them. LibreOffice 25.2 measures
/// objects only after a change of the sheet, so they may also be at the cells that the original names.
bool hasMovedObjects(const ExportedSheet& former, const ExportedSheet& now,
                     const std::vector<ObjectPlace>& original);

/// The exports of a sheet in which the places of its objects are known.
struct KnownPlaces {
    const ExportedSheet& edited;
    const ExportedSheet* again = nullptr;   ///< the edited one, read and written once more; may be null
    const ExportedSheet* former = nullptr;  ///< the one before the changes; null if cells have moved since
};

/// Returns true if each object of the proof is where one of the other exports has it. The objects themselves
/// must be the same. They are where the former export has them if the office has measured them anew since,
/// but those of a drawing start where the edited one has them.
bool areInPlaces(const ExportedSheet& proof, const KnownPlaces& known);

}  // namespace mergeloom::graft
