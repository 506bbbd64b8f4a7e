#include "office/graft/OriginalStories.h"

#include "office/graft/Refusal.h"

#include <algorithm>
#include <string_view>

namespace mergeloom::graft {

namespace {

/// Returns the name without its number: "header" for "header 2".
std::string_view kindOf(std::string_view name) {
    const std::size_t blank = name.find_last_of(' ');
    const bool isNumbered = blank != std::string_view::npos &&
                            name.find_first_not_of("0123456789", blank + 1) == std::string_view::npos;
    return isNumbered ? name.substr(0, blank) : name;
}

std::string textOf(const std::vector<Line>& lines) {
    std::string text;
    for (const Line& line : lines)
        text += textKeyOf(line) + "\n";
    return text;
}

}  // namespace

embedded::Story& originalOf(embedded::WordContent& original, const ReadStory& exported) {
    const std::string text = textOf(exported.lines);
    embedded::Story* found = nullptr;
    for (embedded::Story* story : original.stories()) {
        if (exported.name() == "body" && story->name() == "body") return *story;
        if (kindOf(story->name()) != kindOf(exported.name()) || textOf(LineReader().read(*story)) != text)
            continue;
        if (found != nullptr) throw Refusal("several of the file's stories are alike: " + exported.name());
        found = story;
    }
    if (found == nullptr)
        throw Refusal("LibreOffice reads the " + std::string(kindOf(exported.name())) +
                      " differently from the file");
    return *found;
}

}  // namespace mergeloom::graft
