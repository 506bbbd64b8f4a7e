#pragma once

#include "base/FileStore.h"
#include "office/model/excel/Application.h"

namespace mergeloom::embedded {

/// Starts the embedded engine in the role of Excel. The file store must outlive it.
excel::ApplicationPtr makeExcelApplication(FileStore& files);

}  // namespace mergeloom::embedded
