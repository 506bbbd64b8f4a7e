#pragma once

#include "office/model/excel/Application.h"

#include <functional>

namespace mergeloom {

/// Starts an office that plays Excel's part.
using ExcelStarter = std::function<excel::ApplicationPtr()>;

}  // namespace mergeloom
