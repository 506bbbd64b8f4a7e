#pragma once

#include "base/FileStore.h"
#include "office/model/word/Forward.h"

namespace mergeloom::embedded {

/// Starts the engine of our own in Word's part. The file store has to outlive it and its documents.
word::ApplicationPtr makeWordApplication(FileStore& files);

}  // namespace mergeloom::embedded
