#pragma once

#include "ui/designer/HostedOffice.h"
#include "ui/designer/OfficeWorker.h"

#include <atomic>
#include <functional>

namespace mergeloom {

/// Requests the keyboard for the hosted document. Belongs to the windows' thread and does not wait: the
/// office may be busy, and the user may leave the document before it has the keyboard.
class DocumentFocus {
  public:
    /// The function returns true if the office shows the document and no command is running; otherwise
    /// requests are ignored. The arguments must outlive this object.
    DocumentFocus(OfficeWorker& worker, HostedOffice& office, std::function<bool()> isFree);

    /// Gives the keyboard to the document.
    void enter();
    /// Does the same after another window had the keyboard, unless the user clicks beside the document.
    void enterAgain();
    /// Cancels the requests that are pending.
    void leave() { isWanted_ = false; }

  private:
    void post(void (DocumentHost::*focus)(const std::function<bool()>&));

    OfficeWorker& worker_;
    HostedOffice& office_;
    const std::function<bool()> isFree_;
    std::atomic<bool> isWanted_ = false;
};

}  // namespace mergeloom
