#include "droppers/SpecialPlaces.h"

#include "base/Text.h"

namespace mergeloom {

bool isSpecialPlaceName(const std::string& name) {
    for (const DropKind kind : {DropKind::OptionalSpace, DropKind::OptionalCarriageReturn}) {
        for (int number = 0; number < kMaxPlacesOfAKind; ++number) {
            if (equalsIgnoringCase(name, specialPlaceName(kind, number))) return true;
        }
    }
    return false;
}

}  // namespace mergeloom
