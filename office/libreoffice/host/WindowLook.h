#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/model/DocumentHost.h"

#include <com/sun/star/awt/XWindow.hpp>

namespace mergeloom::libreoffice {

/// Gives a window of the office the colors and the font of the desktop. The windows that the office makes in
/// it later take them over; its menus and dialogs have its own. Must be called within OfficeConnection::call.
void applyLook(const Reference<css::awt::XWindow>& window, const HostLook& look);

}  // namespace mergeloom::libreoffice
