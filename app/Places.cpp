#include "app/Places.h"

#include "app/PlacesJson.h"
#include "app/PlacesTable.h"

namespace mergeloom {

void writePlaces(std::ostream& stream, const std::vector<Place>& places, ListFormat format) {
    if (format == ListFormat::Json) {
        writePlacesJson(stream, places);
    } else {
        writePlacesTable(stream, places);
    }
}

}  // namespace mergeloom
