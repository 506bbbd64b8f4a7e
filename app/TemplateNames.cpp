#include "app/TemplateNames.h"

#include "base/FileNames.h"
#include "base/Text.h"

namespace mergeloom {

namespace {

std::string fileName(const std::string& object, const std::string& end) {
    return validFileName(object, kMaxFileNameLength - end.size()) + end;
}

}  // namespace

std::string TemplateNames::nameFor(const std::string& object) {
    std::string name = fileName(object, extension_);
    std::size_t& number = numbers_.try_emplace(foldCase(name), 1).first->second;
    while (!take(name))
        name = fileName(object, "_" + std::to_string(++number) + extension_);
    return name;
}

bool TemplateNames::take(const std::string& name) {
    return taken_.insert(foldCase(name)).second;
}

}  // namespace mergeloom
