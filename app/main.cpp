#include "app/modMainEntry.h"
#include "base/AutomationError.h"
#include "base/Paths.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <span>
#include <string>
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

/// Replaces this process by the designer, a program of its own beside this one or in ../lib/mergeloom.
/// Returns only when that fails: raises kNotAvailable with a sentence that says what to install.
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

}  // namespace
}  // namespace mergeloom

int main(int count, char** values) {
    const std::vector<std::string> arguments(values + (count > 0 ? 1 : 0), values + count);
    return mergeloom::Main(arguments, {std::cout, std::cerr, isatty(STDERR_FILENO) != 0},
                           mergeloom::execDesigner);
}
