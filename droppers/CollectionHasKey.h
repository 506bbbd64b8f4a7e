#pragma once

#include "base/AutomationError.h"

#include <string>

namespace mergeloom {

/// Returns whether a collection has an item of that key, as far as it can be read: a lookup that fails means
/// absent.
template <class Collection>
bool CollectionHasKey(Collection& collection, const std::string& key) {
    try {
        static_cast<void>(collection.Item(key));
        return true;
    } catch (const AutomationError&) {
        return false;
    }
}

}  // namespace mergeloom
