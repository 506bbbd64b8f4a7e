#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/excel/Application.h"

#include <memory>

namespace mergeloom::libreoffice {

/// A running office in Excel's part. The file store has to outlive it.
excel::ApplicationPtr makeExcelApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files);

}  // namespace mergeloom::libreoffice
