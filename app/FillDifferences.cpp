#include "app/FillDifferences.h"

#include "app/ListFormatting.h"

#include <functional>
#include <set>

namespace mergeloom {

namespace {

using letters::ControlPath;

std::string nameOf(const ControlPath& path) {
    std::string name;
    for (const std::string& part : path)
        name += (name.empty() ? "" : ".") + part;
    return name;
}

std::vector<std::string> namesOf(const std::vector<ControlPath>& paths,
                                 const std::function<bool(const ControlPath&)>& isNamed) {
    std::vector<std::string> names;
    for (const ControlPath& path : paths) {
        if (isNamed(path)) names.push_back(nameOf(path));
    }
    return names;
}

}  // namespace

std::vector<std::string> fillDifferences(const letters::Letters& letters, const SeenControls& seen,
                                         const TemplateNaming& naming) {
    std::vector<std::string> texts = letters.refusals();
    const auto add = [&texts](const std::string& start, const std::vector<std::string>& names) {
        if (!names.empty()) texts.push_back(start + joinedNames(names) + ".");
    };
    std::vector<std::string> unfilled;
    std::set<ControlPath> placed;
    for (const letters::PlaceSource& place : letters.filledPlaces()) {
        const bool isKnown = seen.has(place.path) || !place.image.empty();
        if (placed.insert(place.path).second && !isKnown) unfilled.push_back(nameOf(place.path));
    }
    add("Places without data: ", unfilled);
    add("Places that no control of " + naming.object + " makes: ", naming.unknown);
    add("Data without a place: ",
        namesOf(seen.values(), [&](const ControlPath& path) { return !placed.contains(path); }));
    add("Names that several controls make: ", naming.ambiguous);
    add("Only the first record is shown, since a place is in no row that repeats: ",
        namesOf(letters.firstRecordsOnly(),
                [&](const ControlPath& path) { return seen.mostRecords(path) > 1; }));
    add("Tables without a row that repeats: ",
        namesOf(letters.tablesWithoutRows(),
                [&](const ControlPath& path) { return seen.mostRecords(path) > 0; }));
    return texts;
}

}  // namespace mergeloom
