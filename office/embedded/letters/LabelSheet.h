#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/letters/PlaceSource.h"
#include "office/opc/WordNames.h"

#include <pugixml.hpp>
#include <vector>

/// A sheet of labels is a table whose cells are labels. One label contains all places; the others are empty
/// and have the same width, unlike the cells between the labels. No text is outside of the table, unlike in a
/// letter whose address is in a table.
namespace mergeloom::embedded {

/// Returns the cells of the labels, the one with the places first; empty if the cell is not in such a table.
std::vector<pugi::xml_node> labelCells(pugi::xml_node cellWithPlaces, const opc::WordNames& names);

/// Returns the cell of the body that contains all places of a document; empty if there is none.
pugi::xml_node cellOfAllPlaces(WordContent& content, const letters::PlaceSources& sources);

}  // namespace mergeloom::embedded
