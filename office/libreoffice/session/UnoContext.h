#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/uno/XComponentContext.hpp>

namespace mergeloom::libreoffice {

/// Returns this process's own context of UNO, which it needs to connect to an office: made once and kept to
/// the program's end. Raises kNotAvailable when the installed libraries are not complete.
const Reference<css::uno::XComponentContext>& localContext();

}  // namespace mergeloom::libreoffice
