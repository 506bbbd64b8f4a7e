#include "app/Places.h"

#include "app/PlacesJson.h"
#include "app/PlacesTable.h"
#include "office/model/word/Bookmark.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Range.h"

#include <algorithm>
#include <charconv>
#include <tuple>

namespace mergeloom {

namespace {

Place placeOf(word::Bookmark& bookmark) {
    const word::RangePtr range = bookmark.Range();
    return {bookmark.Name(), "bookmark", range->Text(), range->storyName(), range->Start(), range->End()};
}

/// "header 10" stands behind "header 9", and the body before everything else.
auto storyOrder(const std::string& story) {
    const std::size_t blank = story.rfind(' ');
    int number = 0;
    if (blank != std::string::npos) {
        std::from_chars(story.data() + blank + 1, story.data() + story.size(), number);
    }
    return std::tuple{story != "body", story.substr(0, blank), number};
}

/// An outer place stands before the places in it.
bool readsBefore(const Place& a, const Place& b) {
    const auto order = [](const Place& place) {
        return std::tuple{storyOrder(place.story), place.start, -place.end.value, place.name};
    };
    return order(a) < order(b);
}

}  // namespace

std::vector<Place> placesOf(word::Document& document) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    std::vector<Place> places;
    const int count = bookmarks->Count();
    for (int number = 1; number <= count; ++number)
        places.push_back(placeOf(*bookmarks->Item(number)));
    std::ranges::sort(places, readsBefore);
    return places;
}

void writePlaces(std::ostream& stream, const std::vector<Place>& places, PlacesFormat format) {
    if (format == PlacesFormat::Json) {
        writePlacesJson(stream, places);
    } else {
        writePlacesTable(stream, places);
    }
}

}  // namespace mergeloom
