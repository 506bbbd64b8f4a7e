#include "office/com/word/StoryNames.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace mergeloom::com {

namespace {

/// The stories of one kind, by their numbers in WdStoryType, in the order in which they are counted.
struct StoryKind {
    const char* name;
    std::vector<int> types;
};

const std::vector<StoryKind> kKinds{{"footnote", {2}}, {"endnote", {3}},       {"comment", {4}},
                                    {"text box", {5}}, {"header", {7, 6, 10}}, {"footer", {9, 8, 11}}};
constexpr int kMainText = 1;

/// Adds the stories of one type, each of which refers to the next one.
void addChain(AutomationObject story, std::vector<AutomationObject>& stories) {
    for (;;) {
        stories.push_back(story);
        const DispatchPtr next = story.get("NextStoryRange").object();
        if (!next) return;
        story = {story.session(), next, "Range"};
    }
}

}  // namespace

std::vector<AutomationObject> storiesOf(const AutomationObject& document) {
    std::vector<AutomationObject> stories;
    for (const AutomationObject& first : document.object("StoryRanges", "StoryRanges").items("Range"))
        addChain(first, stories);
    return stories;
}

std::string storyNameOf(const AutomationObject& range) {
    const int type = range.get("StoryType").integer();
    if (type == kMainText) return "body";
    const auto isOfKind = [&](const StoryKind& kind) { return std::ranges::count(kind.types, type) > 0; };
    const auto kind = std::ranges::find_if(kKinds, isOfKind);
    if (kind == kKinds.end()) return "story " + std::to_string(type);

    int number = 0;
    const std::vector<AutomationObject> stories = storiesOf(range.object("Document", "Document"));
    for (const int wanted : kind->types) {
        for (const AutomationObject& story : stories) {
            if (story.get("StoryType").integer() != wanted) continue;
            ++number;
            if (wanted == type && range.get("InRange", {{"Range", story.reference()}}).truth())
                return kind->name + (" " + std::to_string(number));
        }
    }
    return kind->name + std::string(" 1");
}

}  // namespace mergeloom::com
