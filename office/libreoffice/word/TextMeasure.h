#pragma once

#include "office/libreoffice/word/Needle.h"

#include <cstdint>

namespace mergeloom::libreoffice {

/// How many steps of a cursor lie before the range's start in the text; none (-1) when it is no range of that
/// text.
std::int64_t stepsBefore(const TextReference& text, const Reference<css::text::XTextRange>& range);
/// How many steps a cursor can take through the whole text.
std::int64_t stepsOf(const TextReference& text);

}  // namespace mergeloom::libreoffice
