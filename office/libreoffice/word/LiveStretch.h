#pragma once

#include "base/Units.h"

namespace mergeloom::libreoffice {

class WriterStory;

/// A stretch of a story that its story keeps true through edits. Ranges and the selection hang on it.
struct LiveStretch {
    WriterStory* story = nullptr;
    CharacterPosition start;
    CharacterPosition end;

    [[nodiscard]] bool isCaret() const { return start == end; }
};

}  // namespace mergeloom::libreoffice
