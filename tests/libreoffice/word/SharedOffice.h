#pragma once

#include "office/libreoffice/session/LibreOfficeSession.h"

#include <memory>

namespace mergeloom {

/// The one office of a test program, started with the first call. Its files are those of the store given
/// last.
std::shared_ptr<libreoffice::LibreOfficeSession> sharedOffice(FileStore& files);

}  // namespace mergeloom
