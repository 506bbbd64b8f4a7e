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
    bool placed = true;       ///< false once it is gone
};

using ObjectPtr = std::shared_ptr<TextObject>;

}  // namespace mergeloom::libreoffice
