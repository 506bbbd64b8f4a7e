#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/readback/KeptOriginal.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/excel/Application.h"

#include <memory>

namespace mergeloom::libreoffice {

/// Starts the object model of a running office in the role of Excel. The file store must outlive it.
/// With a grafting office, saves keep the files that were opened.
excel::ApplicationPtr makeExcelApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files,
                                           GraftingOfficePtr grafting = {});

}  // namespace mergeloom::libreoffice
