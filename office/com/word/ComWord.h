#pragma once

#include "office/com/automation/OfficeServer.h"
#include "office/model/word/Forward.h"

namespace mergeloom::com {

/// Starts the installed Word, or the program that the server names, without a window. It ends with the last
/// reference to the application, unless it then shows documents of the user's. Raises kNotAvailable with a
/// sentence that advises the user.
word::ApplicationPtr makeWordApplication(const OfficeServer& server);

}  // namespace mergeloom::com
