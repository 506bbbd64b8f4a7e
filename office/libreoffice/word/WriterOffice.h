#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/word/Forward.h"

#include <memory>

namespace mergeloom::libreoffice {

/// A running LibreOffice in Word's part. The file store has to outlive it and its documents.
word::ApplicationPtr makeWordApplication(std::shared_ptr<LibreOfficeSession> session, FileStore& files);

}  // namespace mergeloom::libreoffice
