#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/awt/Rectangle.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <rtl/ustring.hxx>

namespace mergeloom::libreoffice {

/// Returns where the window of a workbook shows the cells of the names: rectangles in pixels from the
/// window's upper left corner. Names of other sheets, and those that stand for no cells, have none; split or
/// frozen views may show parts of one name. Must run inside the office, since it makes a dozen calls for each
/// name. Raises UNO's exceptions.
css::uno::Sequence<css::awt::Rectangle> boundsOfNamedCells(const DocumentReference& workbook,
                                                           const css::uno::Sequence<rtl::OUString>& names);

}  // namespace mergeloom::libreoffice
