#include "app/EntryErrors.h"

#include "app/MergeloomErrorCodes.h"
#include "base/SourcePlace.h"

namespace mergeloom {

namespace {

/// The error of an object that was unloaded while the program ended.
constexpr ErrorNumber kObjectUnloaded = 364;

}  // namespace

void reportEntryError(const AutomationError& error, ErrorHandler& errors, Messages& messages) {
    if (error.number() == kObjectUnloaded) return;
    if (!isMappingError(error.number())) {
        errors.report(
            {error.number(), error.description(), {}, "modMain", "Main", shownPlace(error.place())});
    } else if (!error.description().empty()) {
        messages.show({error.description(), MessageIcon::Exclamation, MessageButtons::Ok});
    }
}

}  // namespace mergeloom
