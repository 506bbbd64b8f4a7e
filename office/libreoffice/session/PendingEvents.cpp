#include "office/libreoffice/session/PendingEvents.h"

#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XReschedule.hpp>

namespace mergeloom::libreoffice {

void handlePendingEvents(const Reference<css::uno::XComponentContext>& office) {
    const auto toolkit = css::awt::Toolkit::create(office);
    // No other interface does this; XToolkitExperimental also waits for idle tasks.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    Reference<css::awt::XReschedule>(toolkit, UNO_QUERY_THROW)->reschedule();
#pragma GCC diagnostic pop
}

}  // namespace mergeloom::libreoffice
