#pragma once

#include "office/model/excel/Forward.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom {

/// Start the installed Word or Excel. The calls are traced to a file if one is named. Raise kNotAvailable
/// with a sentence that advises the user.
word::ApplicationPtr startInstalledWord(const std::string& traceFile);
excel::ApplicationPtr startInstalledExcel(const std::string& traceFile);

}  // namespace mergeloom
