#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/letters/PlaceSource.h"
#include "office/opc/WordNames.h"

#include <pugixml.hpp>
#include <vector>

/// A sheet of labels is a table whose cells are the labels. The places are in one of them; the others are
/// empty and as wide as that one, unlike the cells between the labels.
namespace mergeloom::embedded {

/// Returns the cells of the labels, that with the places first; none when the cell is in no such table.
std::vector<pugi::xml_node> labelCells(pugi::xml_node cellWithPlaces, const opc::WordNames& names);

/// Returns the cell of the body that contains all places of a document, or none.
pugi::xml_node cellOfAllPlaces(WordContent& content, const letters::PlaceSources& sources);

}  // namespace mergeloom::embedded
