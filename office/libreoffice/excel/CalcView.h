#pragma once

#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/frame/XController.hpp>

namespace mergeloom::libreoffice {

/// Takes the marks off cells, and lets the active one, which stays, take what is typed into it. Within a
/// call.
void unmarkCells(OfficeConnection& connection, const Reference<css::frame::XController>& view);

}  // namespace mergeloom::libreoffice
