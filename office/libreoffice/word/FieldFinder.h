#pragma once

#include "office/libreoffice/word/TextPlace.h"
#include "office/model/word/Enumerations.h"

#include <com/sun/star/text/XTextContent.hpp>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// A field in a Writer document. Fields that Writer does not know have marks in the text around their code
/// and their result.
struct FoundField {
    Reference<css::text::XTextContent> object;
    word::WdFieldType type = word::WdFieldType::wdFieldEmpty;
    std::string code{};        ///< empty where Writer does not keep the code of Word's field
    CursorReference inText{};  ///< the text between the marks of the code; none for a field that Writer knows
    bool isInCode = false;     ///< of another field
};

/// Returns the fields of a text or range, in order, an outer one before those inside it.
std::vector<FoundField> fieldsIn(const Reference<css::uno::XInterface>& text);

/// Returns true while the field is in its document.
bool isThere(const FoundField& field);

/// Sets the code of the first field without one in the paragraph of the place.
void restoreCode(const RangeReference& place, const std::string& code);

}  // namespace mergeloom::libreoffice
