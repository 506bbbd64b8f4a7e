#pragma once

#include "base/FileStore.h"
#include "office/model/excel/Application.h"

namespace mergeloom::embedded {

/// Starts the engine of our own in Excel's part. The file store has to outlive it.
excel::ApplicationPtr makeExcelApplication(FileStore& files);

}  // namespace mergeloom::embedded
