#pragma once

#include "office/com/automation/AutomationObject.h"

#include <string>

namespace mergeloom::com {

/// The program that is used as an office, and the patience of the calls to it.
struct OfficeServer {
    std::string programIdentifier{};  ///< of a class that is registered, such as "Word.Application"
    Patience patience{};
    CallTracePtr trace{};
    DispatchPtr application{};  ///< an application that runs already; none to start one
};

/// Starts an office, whose name is for sentences, and returns its application. Raises kNotAvailable with a
/// sentence that advises the user.
AutomationObject startApplication(const std::string& officeName, const OfficeServer& server);

/// MsoAutomationSecurity: the macros of opened documents are off.
inline constexpr int kForceDisable = 3;
/// Opens no file with a password, and keeps an office from asking for one.
inline constexpr const char* kNoPassword = "-";

}  // namespace mergeloom::com
