#pragma once

#include "base/Units.h"
#include "office/libreoffice/word/Needle.h"
#include "office/libreoffice/word/WriterModel.h"

namespace mergeloom::libreoffice {

/// How wide text can be at the cursor: the page less its margins, or the width of the cell around it.
Emu textAreaWidth(const WriterModel& model, const CursorReference& cursor);

}  // namespace mergeloom::libreoffice
