#pragma once

#include "office/libreoffice/session/LibreOfficeSession.h"

#include <memory>

namespace mergeloom {

/// Returns the only office of a test program, which the first call starts. Its files are those of the last
/// given store.
std::shared_ptr<libreoffice::LibreOfficeSession> sharedOffice(FileStore& files);

}  // namespace mergeloom
