#pragma once

#include "office/libreoffice/job/NamedAreas.h"
#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/awt/Rectangle.hpp>
#include <com/sun/star/uno/Sequence.hxx>

namespace mergeloom::libreoffice {

/// Returns the rectangles of the named cells in the window of their workbook, in pixels from the upper left
/// corner. Names of other sheets and cells that are not seen have no rectangle; split or frozen views may
/// have several for one name. Must run inside the office, since it makes a dozen calls for each name that is
/// seen. Raises UNO's exceptions.
css::uno::Sequence<css::awt::Rectangle> boundsInWindow(const DocumentReference& workbook,
                                                       const NamedAreas& names);

}  // namespace mergeloom::libreoffice
