#include "app/DesignerProgram.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace mergeloom {

namespace {

constexpr const char* kDesigner = "mergeloom-designer";

std::string findDesigner() {
    std::string path = installedFile(kDesigner);
    if (!path.empty()) return path;
    const std::string folder = parentFolder(programPath());
    throw AutomationError(
        kNotAvailable, "The designer is not installed: there is no '" + joinPath(folder, kDesigner) +
                           "'. Install Qt 6 and build it, or add -hidden to make the template without it.");
}

}  // namespace

int execDesigner(std::span<const std::string> arguments) {
    const std::string program = findDesigner();
    std::vector<std::string> texts{program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> values;
    std::ranges::transform(texts, std::back_inserter(values), [](std::string& text) { return text.data(); });
    values.push_back(nullptr);
    ::execv(program.c_str(), values.data());
    throw AutomationError(kNotAvailable, "The designer '" + program + "' cannot be started.");
}

}  // namespace mergeloom
