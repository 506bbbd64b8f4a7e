#pragma once

#include "office/libreoffice/word/MarkRecord.h"
#include "office/model/word/Enumerations.h"

#include <memory>
#include <optional>
#include <string>

namespace mergeloom::libreoffice {

enum class ObjectKind { Field, InlineShape, FloatingShape };

/// Something that stands in a story's text, or for a floating shape the place of its anchor.
struct TextObject {
    ObjectKind kind = ObjectKind::Field;
    Stretch place;
    word::WdFieldType fieldType = word::WdFieldType::wdFieldEmpty;
    std::string fieldCode{};  ///< empty where Writer does not keep the code of Word's field
    /// How much of the place comes before the result: of a field that Writer does not know its first mark,
    /// its code and the mark that ends the code; of every other field nothing.
    CharacterCount codeLength{};
    bool placed = true;  ///< false once it is gone
};

/// Returns the place of a field's code without the marks around it; empty where the code is not in the text.
inline Stretch codeOf(const TextObject& field) {
    const bool isInText = field.codeLength > CharacterCount{0};
    const CharacterCount mark{isInText ? 1 : 0};
    return {field.place.start + mark, field.place.start + (field.codeLength - mark)};
}

using ObjectPtr = std::shared_ptr<TextObject>;

}  // namespace mergeloom::libreoffice
