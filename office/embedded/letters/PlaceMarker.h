#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/letters/PlaceSource.h"

#include <string>
#include <vector>

namespace mergeloom::embedded {

/// A place of the template that is filled.
struct MarkedPlace {
    std::string name;  ///< of the bookmark
    letters::PlaceSource source;
    bool isPicture = false;
};

/// A table of the template that lists the records of a subform.
struct MarkedTable {
    std::string name;
    letters::ControlPath path;
};

/// The places that were found in a template.
struct MarkedPlaces {
    std::vector<MarkedPlace> places{};
    std::vector<MarkedTable> tables{};
    std::vector<std::string> optionals{};  ///< the bookmarks of optional blanks and line breaks
    std::vector<std::string> refusals{};   ///< why a place cannot be filled, as sentences
};

/// Replaces the text of each place by a token with the place's number, in all stories. This is the
/// replacement that a user of the object model makes, so formatting, fields and content controls are treated
/// as there.
MarkedPlaces markPlaces(WordContent& content, const letters::PlaceSources& sources);

}  // namespace mergeloom::embedded
