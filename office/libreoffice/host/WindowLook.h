#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/model/DocumentHost.h"

#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

namespace mergeloom::libreoffice {

/// Creates the bars of a hidden document and removes them. With its first bar, LibreOffice 24 and later reads
/// the style of its icons and resets the look of all its windows. Does nothing in older versions. Must be
/// called within OfficeConnection::call, before a window gets its look.
void makeFirstBars(const Reference<css::uno::XComponentContext>& office);

/// Gives a window of the office the colors and the font of the desktop. The windows that the office makes in
/// it later take them over; its menus and dialogs have its own. Must be called within OfficeConnection::call.
void applyLook(const Reference<css::awt::XWindow>& window, const HostLook& look);

}  // namespace mergeloom::libreoffice
