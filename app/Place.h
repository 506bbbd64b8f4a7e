#pragma once

#include "base/Units.h"

#include <string>

namespace mergeloom {

/// A named place of a document.
struct Place {
    std::string name;
    std::string kind;
    std::string text;
    std::string story;  ///< as Range::storyName tells it
    CharacterPosition start;
    CharacterPosition end;
};

}  // namespace mergeloom
