#include "app/PlacesTable.h"

#include "app/TextTable.h"

namespace mergeloom {

void writePlacesTable(std::ostream& stream, const std::vector<Place>& places) {
    std::vector<TextRow> rows{{"NAME", "KIND", "WHERE", "TEXT"}};
    for (const Place& place : places)
        rows.push_back({place.name, place.kind, shownInLine(place.where), shownInLine(place.text)});
    writeTextTable(stream, rows);
}

}  // namespace mergeloom
