#include "office/com/automation/OfficeServer.h"

namespace mergeloom::com {

AutomationObject startApplication(const std::string& officeName, const OfficeServer& server) {
    const auto session = std::make_shared<AutomationSession>(officeName, server.patience, server.trace);
    const DispatchPtr application =
        server.application ? server.application : session->start(server.programIdentifier);
    return {session, application, "Application"};
}

}  // namespace mergeloom::com
