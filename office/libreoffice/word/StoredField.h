#pragma once

#include "office/libreoffice/word/TextObject.h"
#include "office/opc/XmlPart.h"

namespace mergeloom::libreoffice {

/// What field of Word's stands at an element of a field, or at the start of one that Writer does not know and
/// keeps with its code. The place is still open.
TextObject storedField(const pugi::xml_node& element);

}  // namespace mergeloom::libreoffice
