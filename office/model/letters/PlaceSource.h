#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::letters {

/// The values of a control.
enum class ValueKind { Display, Bound };

/// The path from a record to a value or to the records of a subform: the names of the subforms around a
/// control, then its own name. Empty for the records themselves.
using ControlPath = std::vector<std::string>;

/// The source of the value of a place.
struct PlaceSource {
    ControlPath path{};
    ValueKind value = ValueKind::Display;
    std::string image{};  ///< the picture of all records without one of their own

    friend bool operator==(const PlaceSource&, const PlaceSource&) = default;
};

/// The sources of the bookmarks of a document, by their names in folded case.
struct PlaceSources {
    std::unordered_map<std::string, PlaceSource> places{};
    /// The subforms that the tables list.
    std::unordered_map<std::string, ControlPath> tables{};
    /// The names that several controls would give to places. The first of these controls is the source.
    std::vector<std::string> ambiguous{};
};

}  // namespace mergeloom::letters
