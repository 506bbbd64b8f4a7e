#include "app/DesignerProgram.h"

#include "base/AutomationError.h"

namespace mergeloom {

int execDesigner(std::span<const std::string>) {
    throw AutomationError(kNotAvailable,
                          "There is no window on Windows yet. Add -hidden to make the template without it.");
}

}  // namespace mergeloom
