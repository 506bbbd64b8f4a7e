#pragma once

#include "office/com/automation/OfficeServer.h"
#include "office/model/excel/Forward.h"

namespace mergeloom::com {

/// Starts the installed Excel, or the program that the server names, without a window. It ends with the last
/// reference to the application, unless it then shows workbooks of the user's. Raises kNotAvailable with a
/// sentence that advises the user.
excel::ApplicationPtr makeExcelApplication(const OfficeServer& server);

}  // namespace mergeloom::com
