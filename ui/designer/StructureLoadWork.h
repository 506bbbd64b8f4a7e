#pragma once

#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "ui/designer/LoadedStructure.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom {

/// The result of loading a structure document. Its messages are kept, since only the window can show them.
struct StructureLoadResult {
    std::shared_ptr<LoadedStructure> structure;  ///< none when the document was not read
    std::vector<Message> messages;
    std::vector<ErrorReport> errors;  ///< of several equal ones the first, with their number as its comment
};

/// Loads a structure document and builds its tree with icons; in Word mode the special nodes stand before it.
/// May run in any thread. When isCancelled becomes true, the result may be left unfinished.
StructureLoadResult loadStructure(const std::string& path, const std::function<bool()>& isCancelled);

}  // namespace mergeloom
