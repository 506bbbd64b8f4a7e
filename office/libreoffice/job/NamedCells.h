#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/awt/Rectangle.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <rtl/ustring.hxx>

namespace mergeloom::libreoffice {

/// Returns the rectangles of the cells of the names in the window of a workbook, in pixels from the upper
/// left corner. Names of other sheets, and those without cells, have no rectangle; split or frozen views may
/// have several for one name. Must run inside the office, since it makes a dozen calls for each name. Raises
/// UNO's exceptions.
css::uno::Sequence<css::awt::Rectangle> boundsOfNamedCells(const DocumentReference& workbook,
                                                           const css::uno::Sequence<rtl::OUString>& names);

}  // namespace mergeloom::libreoffice
