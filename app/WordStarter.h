#pragma once

#include "office/model/word/Application.h"

#include <functional>

namespace mergeloom {

/// Starts an office that plays Word's part.
using WordStarter = std::function<word::ApplicationPtr()>;

}  // namespace mergeloom
