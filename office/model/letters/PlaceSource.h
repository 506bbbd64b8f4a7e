#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::letters {

/// The value of a control that a place takes.
enum class ValueKind { Display, Bound };

/// The names of the controls that lead from a record to a value or to the records of a subform: those of the
/// subforms around a control, then its own. Empty for the records themselves.
using ControlPath = std::vector<std::string>;

/// The control whose value a place takes.
struct PlaceSource {
    ControlPath path{};
    ValueKind value = ValueKind::Display;
    std::string image{};  ///< the picture that every record has unless it has its own

    friend bool operator==(const PlaceSource&, const PlaceSource&) = default;
};

/// What the bookmarks of a document take from a record, by their names in folded case.
struct PlaceSources {
    std::unordered_map<std::string, PlaceSource> places{};
    /// The subforms whose records the tables list.
    std::unordered_map<std::string, ControlPath> tables{};
    /// The names of places that several controls make; the first of these controls has the place.
    std::vector<std::string> ambiguous{};
};

}  // namespace mergeloom::letters
