#include "app/LetterNames.h"

#include "app/GnuOptions.h"
#include "app/TemplateNames.h"
#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace mergeloom {

namespace {

[[noreturn]] void refuseName(const std::string& why) {
    throw AutomationError(kNotAvailable, why);
}

std::string recordText(std::size_t number) {
    return "record " + std::to_string(number);
}

/// Refuses a value that would change the structure of the path.
void checkValue(const std::string& control, const std::string& value, std::size_t number) {
    if (value.empty()) {
        refuseName("No file can be named: {" + control + "} is empty in " + recordText(number) + ".");
    }
    // The letters around it avoid the rules for the beginning and the end, which apply to the whole name.
    const std::string between = "x" + value + "x";
    if (value.find('/') == std::string::npos && validFileName(between) == between) return;
    refuseName("The value \"" + value + "\" of {" + control + "} in " + recordText(number) +
               " cannot be a part of a file name.");
}

}  // namespace

LetterNames::LetterNames(const std::string& pattern) : pattern_(pattern) {
    std::string_view rest = pattern;
    for (;;) {
        const std::size_t open = rest.find('{');
        const std::size_t close = rest.find('}');
        pieces_.emplace_back(rest.substr(0, open));
        if (open == std::string_view::npos && close == std::string_view::npos) return;
        if (close == std::string_view::npos || open > close) {
            throw AutomationError(kOptionNotUnderstood,
                                  "The file name '" + pattern + "' has a brace without its counterpart.");
        }
        controls_.emplace_back(rest.substr(open + 1, close - open - 1));
        rest.remove_prefix(close + 1);
    }
}

std::string LetterNames::pathFor(const Record& record, std::size_t number) const {
    std::string path = pieces_.front();
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        const RecordControl* const control = record.find(controls_[i]);
        const std::string value = control == nullptr ? std::string() : control->shownText();
        checkValue(controls_[i], value, number);
        path += value + pieces_[i + 1];
    }
    checkParts(path, number);
    return path;
}

/// Checks the file's name, and the names of folders that are made of values.
void LetterNames::checkParts(const std::string& path, std::size_t number) const {
    const std::vector<std::string_view> parts = split(path, '/');
    const std::vector<std::string_view> patternParts = split(pattern_, '/');
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool isFile = i + 1 == parts.size();
        const std::string part(parts[i]);
        // No value has a slash, so that path and pattern have the same number of parts.
        if ((!isFile && parts[i] == patternParts.at(i)) || validFileName(part) == part) continue;
        refuseName("The " + std::string(isFile ? "file" : "folder") + " name \"" + part + "\" of " +
                   recordText(number) + " is none that every system can hold.");
    }
}

void PathFingerprints::note(const std::string& path, std::size_t number) {
    noted_.emplace_back(std::hash<std::string>{}(foldCase(path)), number);
}

std::vector<std::size_t> PathFingerprints::suspects() {
    std::ranges::sort(noted_);
    std::vector<std::size_t> numbers;
    for (auto first = noted_.begin(); first != noted_.end();) {
        const auto end =
            std::find_if(first, noted_.end(), [&](const auto& noted) { return noted.first != first->first; });
        if (end - first > 1)
            std::transform(first, end, std::back_inserter(numbers), [](const auto& n) { return n.second; });
        first = end;
    }
    std::ranges::sort(numbers);
    return numbers;
}

void TakenNames::take(const std::string& path, std::size_t number) {
    const auto [found, isNew] = numbers_.emplace(foldCase(path), number);
    if (isNew) return;
    refuseName("The file '" + path + "' would be written for two records, " + std::to_string(found->second) +
               " and " + std::to_string(number) + ".");
}

}  // namespace mergeloom
