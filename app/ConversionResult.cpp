#include "app/ConversionResult.h"

#include "base/Text.h"

#include <algorithm>
#include <map>
#include <utility>

namespace mergeloom {

namespace {

std::string counted(std::size_t count, const char* one, const char* several) {
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string placesSentence(const ConversionResult& result) {
    const std::string fields =
        counted(static_cast<std::size_t>(result.fields), "field", "fields") + " became ";
    if (result.places == result.fields) return fields + (result.places == 1 ? "a place" : "places");
    return fields + std::to_string(result.places) + " places";
}

/// Returns a line for each text, in the order of their first occurrence, with the number of its occurrences.
std::string countedLines(const std::string& what, const std::vector<std::string>& texts) {
    std::vector<std::pair<std::string, int>> occurrences;
    for (const std::string& text : texts) {
        const auto known = std::ranges::find(occurrences, text, &std::pair<std::string, int>::first);
        if (known == occurrences.end()) {
            occurrences.emplace_back(text, 1);
        } else {
            ++known->second;
        }
    }
    std::string lines;
    for (const auto& [text, count] : occurrences)
        lines += what + text + (count == 1 ? "" : " (" + std::to_string(count) + " times)") + "\n";
    return lines;
}

std::string lineOf(const LeftField& field) {
    return field.why == WhyLeft::InCode ? field.text + " (in the code of another field)" : field.text;
}

std::string leftSentence(const std::vector<LeftField>& left) {
    if (left.empty()) return {};
    std::vector<std::string> texts;
    std::ranges::transform(left, std::back_inserter(texts), lineOf);
    return counted(left.size(), "field", "fields") + " stayed.\n" + countedLines("Stayed: ", texts);
}

std::string movedBookmarksSentence(const std::vector<std::string>& names) {
    // The names of bookmarks are compared regardless of letter case; the last spelling is the one in the
    // document.
    std::map<std::string, std::string> last;
    for (const std::string& name : names)
        last[foldCase(name)] = name;
    std::string lines;
    for (const auto& [folded, name] : last) {
        lines += "The bookmark '" + name +
                 "' stands around the last place of that name; the others are plain text.\n";
    }
    return lines;
}

}  // namespace

std::string conversionReport(const ConversionResult& result) {
    return placesSentence(result) + ", " +
           counted(result.removed.size(), "was removed.\n", "were removed.\n") +
           countedLines("Removed: ", result.removed) + leftSentence(result.left) +
           countedLines("", result.refusals) + movedBookmarksSentence(result.movedBookmarks);
}

}  // namespace mergeloom
