#pragma once

#include "office/opc/Package.h"

#include <string>
#include <vector>

/// A letter that was filled can be filled again. Two marks that Word keeps show what the filling made.
namespace mergeloom::embedded {

/// Stands, in a restored template, where an empty run keeps the formatting of a place. No text has it
/// (U+FDD2).
inline constexpr const char* kKeptPlace = "\uFDD2";

/// Begins the names of hidden bookmarks over the rows that were added below a table's pattern rows. Each ends
/// in a number.
inline constexpr const char* kAddedRowsName = "_MergeloomRows";

enum class PartKind { Body, HeaderOrFooter, Notes, Comments };

/// A part of a document that can contain places.
struct StoryPart {
    std::string name;
    PartKind kind;
};

/// Returns the parts of a document that can contain places, the body first.
std::vector<StoryPart> partsWithPlaces(opc::Package& package);

/// Brings a filled letter back to the form of its template: removes rows that were added, and puts a text
/// into the empty runs at the beginning of places, which keep their formatting.
void restoreTemplate(opc::Package& package);

}  // namespace mergeloom::embedded
