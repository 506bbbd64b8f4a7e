#include "ui/designer/HostedOffice.h"

#include "base/AutomationError.h"

namespace mergeloom {

DocumentHost& HostedOffice::host() {
    if (host_) return *host_;
    throw AutomationError(kNotAvailable, "The office is not running. Start it again.");
}

}  // namespace mergeloom
