#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/uno/XComponentContext.hpp>

namespace mergeloom::libreoffice {

/// Makes the office handle the events that it has received. Idle tasks, such as the layout of the later pages
/// of a long document, are not finished by that.
void handlePendingEvents(const Reference<css::uno::XComponentContext>& office);

}  // namespace mergeloom::libreoffice
