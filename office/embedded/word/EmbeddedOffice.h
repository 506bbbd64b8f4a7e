#pragma once

#include "base/FileStore.h"
#include "office/model/word/Forward.h"

namespace mergeloom::embedded {

/// Returns the engine in the role of Word: documents are Office Open XML packages that it reads, edits and
/// writes itself. The file store must outlive it and its documents.
word::ApplicationPtr makeWordApplication(FileStore& files);

}  // namespace mergeloom::embedded
