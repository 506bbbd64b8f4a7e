#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/model/DocumentHost.h"

#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

namespace mergeloom::libreoffice {

/// Makes the bars of a document unseen and removes them. With its first bar, LibreOffice since 24 reads the
/// style of its icons and gives all of its windows its own look again. Does nothing in an older one. Must be
/// called within OfficeConnection::call, before a window gets its look.
void makeFirstBars(const Reference<css::uno::XComponentContext>& office);

/// Gives a window of the office the colors and the font of the desktop. The windows that the office makes in
/// it later take them over; its menus and dialogs have its own. Must be called within OfficeConnection::call.
void applyLook(const Reference<css::awt::XWindow>& window, const HostLook& look);

}  // namespace mergeloom::libreoffice
