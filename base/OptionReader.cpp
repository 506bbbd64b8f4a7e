#include "base/OptionReader.h"

namespace mergeloom {

bool OptionReader::takeFlag(std::string_view name) {
    if (arguments_[next_] != name) return false;
    ++next_;
    return true;
}

bool OptionReader::takeWithValue(std::string_view name, std::string_view meaning, std::string& value) {
    const std::string& argument = arguments_[next_];
    const bool isGlued = argument.starts_with(std::string(name) + "=");
    if (!isGlued && argument != name) return false;
    ++next_;
    if (isGlued) {
        value = argument.substr(name.size() + 1);
    } else {
        value = next_ < arguments_.size() ? arguments_[next_++] : std::string();
    }
    if (value.empty()) refuse("Option '" + std::string(name) + "' needs " + std::string(meaning) + ".");
    return true;
}

void OptionReader::refuseOption() const {
    refuse("Unknown option '" + arguments_[next_] + "'.");
}

void OptionReader::refuse(const std::string& sentence) const {
    throw AutomationError(kOptionNotUnderstood,
                          sentence + " '" + std::string(program_) + " --help' lists what there is.");
}

}  // namespace mergeloom
