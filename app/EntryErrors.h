#pragma once

#include "base/AutomationError.h"
#include "base/ErrorHandler.h"
#include "base/Messages.h"

namespace mergeloom {

/// Reports an error that reached the entry routine: shows a mapping error by its text, if it has one, and
/// passes any other to the error handler.
void reportEntryError(const AutomationError& error, ErrorHandler& errors, Messages& messages);

}  // namespace mergeloom
