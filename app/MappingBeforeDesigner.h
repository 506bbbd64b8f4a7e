#pragma once

#include "app/GnuOptions.h"
#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "base/Progress.h"

namespace mergeloom {

/// Makes the mapping that the parsed command line requires before the designer is shown; an existing template
/// is built on. Returns false when there is no template to design; errors and refusals have been shown by
/// then.
bool mapBeforeDesigner(const GnuOptions& options, ErrorHandler& errors, Messages& messages,
                       Progress& progress);

}  // namespace mergeloom
