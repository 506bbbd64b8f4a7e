#pragma once

#include "office/libreoffice/word/WriterContent.h"

namespace mergeloom::libreoffice {

enum class ShapeKind { Inline, Floating };

/// How many pictures, frames and drawn shapes of the kind stand, or have their anchors, in the stretch.
int countShapes(WriterContent& content, const LiveStretch& stretch, ShapeKind kind);

}  // namespace mergeloom::libreoffice
