#include "ui/designer/DocumentFocus.h"

#include <exception>
#include <utility>

namespace mergeloom {

DocumentFocus::DocumentFocus(OfficeWorker& worker, HostedOffice& office, std::function<bool()> isFree)
    : worker_(worker), office_(office), isFree_(std::move(isFree)) {}

void DocumentFocus::enter() {
    post(&DocumentHost::focus);
}

void DocumentFocus::enterAgain() {
    post(&DocumentHost::focusAgain);
}

/// Ignores errors: they are those of an office that has ended, which is reported in another way.
void DocumentFocus::post(void (DocumentHost::*focus)(const std::function<bool()>&)) {
    if (!isFree_()) return;
    isWanted_ = true;
    worker_.post([this, focus] { (office_.host().*focus)([this] { return isWanted_.load(); }); },
                 [](const std::exception_ptr& /*error*/) {});
}

}  // namespace mergeloom
