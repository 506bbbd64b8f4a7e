#include "office/graft/WordExport.h"

#include "base/AutomationError.h"
#include "office/graft/LinePlace.h"
#include "office/graft/WholeMarks.h"
#include "office/graft/WordRules.h"

#include <algorithm>
#include <map>
#include <ranges>
#include <utility>

namespace mergeloom::graft {

namespace {

using Place = std::pair<LinePlace, LinePlace>;

std::string sectionOf(const embedded::Story& story, const CanonicalXml& canonical) {
    return canonical.of(story.root().child(story.names().element("sectPr").c_str()));
}

std::map<std::string, Place> marksOf(const ReadStory& read) {
    std::map<std::string, Place> marks;
    const auto& items = read.story->items();
    for (const embedded::Item* item = items.first(); item != nullptr; item = embedded::ItemTree::next(item)) {
        if (item->kind != embedded::ItemKind::BookmarkStart || item->bookmark->isHidden()) continue;
        marks[item->bookmark->name] = {placeOf(read.lines, startOf(*item->bookmark)),
                                       placeOf(read.lines, endOf(*item->bookmark))};
    }
    return marks;
}

}  // namespace

std::string NoFiles::read(const std::string& path) {
    throw AutomationError(kFileCouldNotBeRead, "The file '" + path + "' could not be read.");
}

void NoFiles::save(const std::string& path, const std::function<void(ByteSink&)>&) {
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + path + "' could not be saved.");
}

WordExport::WordExport(const std::string& bytes, const std::string& fileName, FormatNumbers& formats)
    : content_(packageWithWholeMarks(bytes, fileName), files_) {
    for (embedded::Story* story : content_.stories()) {
        const CanonicalXml canonical = canonicalOf(*story);
        stories_.push_back(
            {story, LineReader(canonical, formats).read(*story), sectionOf(*story, canonical)});
    }
}

CanonicalXml WordExport::canonicalOf(const embedded::Story& story) {
    return {wordRules().xml, targetsOf(content_.package(), story.part().partName())};
}

std::string movedMark(const ReadStory& a, const ReadStory& b, const ReadStory* again) {
    const std::map<std::string, Place> marks = marksOf(a);
    const std::map<std::string, Place> others = marksOf(b);
    const std::map<std::string, Place> readAgain =
        again == nullptr ? std::map<std::string, Place>() : marksOf(*again);
    for (const auto& [name, place] : marks) {
        const auto other = others.find(name);
        if (other == others.end()) return name;
        const auto asRead = readAgain.find(name);
        const bool isAsRead = asRead != readAgain.end() && asRead->second == other->second;
        if (other->second != place && !isAsRead) return name;
    }
    for (const auto& [name, place] : others)
        if (!marks.contains(name)) return name;
    return {};
}

bool areAlike(const ReadStory& a, const ReadStory& b) {
    return a.name() == b.name() && a.section == b.section &&
           std::ranges::equal(a.lines, b.lines, {}, &Line::key, &Line::key) && movedMark(a, b).empty();
}

}  // namespace mergeloom::graft
