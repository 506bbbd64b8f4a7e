#pragma once

#include "base/Units.h"
#include "office/embedded/word/WordContent.h"
#include "office/model/letters/PlaceSource.h"

#include <string>
#include <vector>

namespace mergeloom::embedded {

/// A place that is filled.
struct MarkedPlace {
    std::string name;  ///< the name of the bookmark, or empty for a field that repeats it
    letters::PlaceSource source;
    bool isPicture = false;
    Emu textWidth{};           ///< the width of the text around it, for a picture
    bool isReference = false;  ///< true for the result of a field
};

/// A table that lists the records of a subform.
struct MarkedTable {
    std::string name;
    letters::ControlPath path;
};

/// The places of a template.
struct MarkedPlaces {
    std::vector<MarkedPlace> places{};
    std::vector<MarkedTable> tables{};
    std::vector<std::string> optionals{};  ///< the bookmarks of optional blanks and line breaks
    std::vector<std::string> refusals{};   ///< a sentence for each place that cannot be filled
};

/// Replaces the text of each place in all stories by a token with the number of the place. Uses the
/// replacement of the object model, so that formatting, fields and content controls are handled in the same
/// way.
MarkedPlaces markPlaces(WordContent& content, const letters::PlaceSources& sources);

}  // namespace mergeloom::embedded
