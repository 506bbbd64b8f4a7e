#include "app/Places.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Range.h"

#include <algorithm>
#include <charconv>
#include <tuple>
#include <utility>

namespace mergeloom {

namespace {

Place placeOf(word::Bookmark& bookmark) {
    const word::RangePtr range = bookmark.Range();
    TextLocation location{range->storyName(), range->Start(), range->End()};
    const std::string where = location.story + " " + std::to_string(location.start.value) + "-" +
                              std::to_string(location.end.value);
    return {bookmark.Name(), "bookmark", where, range->Text(), std::move(location)};
}

/// Returns the key by which stories are sorted: "header 10" comes after "header 9", and the body before all
/// others.
auto storyOrder(const std::string& story) {
    const std::size_t blank = story.rfind(' ');
    int number = 0;
    if (blank != std::string::npos) {
        std::from_chars(story.data() + blank + 1, story.data() + story.size(), number);
    }
    return std::tuple{story != "body", story.substr(0, blank), number};
}

/// Returns true when one place comes before another in the order of reading; an outer place comes before the
/// places in it.
bool readsBefore(const Place& a, const Place& b) {
    const auto order = [](const Place& place) {
        const auto& location = std::get<TextLocation>(place.location);
        return std::tuple{storyOrder(location.story), location.start, -location.end.value, place.name};
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

}  // namespace mergeloom
