#include "app/Places.h"

#include "app/PlacesJson.h"
#include "app/PlacesTable.h"

namespace mergeloom {

void writePlaces(std::ostream& stream, const std::vector<Place>& places, PlacesFormat format) {
    if (format == PlacesFormat::Json) {
        writePlacesJson(stream, places);
    } else {
        writePlacesTable(stream, places);
    }
}

}  // namespace mergeloom
