#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/accessibility/XAccessibleText.hpp>
#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/awt/Rectangle.hpp>

namespace mergeloom::libreoffice {

using ParagraphReference = Reference<css::accessibility::XAccessibleText>;

/// Returns the index of the character before which a caret is nearest to the point, given in the coordinates
/// of the paragraph; the number of characters for its end. To be called within a call of the connection.
sal_Int32 characterNear(const ParagraphReference& paragraph, css::awt::Point point);

/// Returns the height and the place of a caret that is nearest to the point, in the coordinates of the
/// paragraph. The width is 0. To be called within a call of the connection.
css::awt::Rectangle caretNear(const ParagraphReference& paragraph, css::awt::Point point);

/// Returns the same for a caret before the character.
css::awt::Rectangle caretBefore(const ParagraphReference& paragraph, sal_Int32 character);

/// Returns true if the character is selected. To be called within a call of the connection.
bool isSelected(const ParagraphReference& paragraph, sal_Int32 character);

}  // namespace mergeloom::libreoffice
