#pragma once

#include "base/ErrorHandler.h"
#include "base/FileStore.h"
#include "base/Messages.h"
#include "office/model/DocumentHost.h"

namespace mergeloom {

/// Converts the merge fields of the hosted document to places and shows the user their number; a workbook has
/// none. Runs on the office's thread. Errors of the host pass through.
void convertHostedFields(DocumentHost& host, FileStore& files, ErrorHandler& errors, Messages& messages);

}  // namespace mergeloom
