#pragma once

#include "office/com/automation/Value.h"

#include <memory>
#include <string>

namespace mergeloom::com {

/// Receives a line for each call to an office.
class CallTrace {
  public:
    CallTrace() = default;
    CallTrace(const CallTrace&) = delete;
    CallTrace& operator=(const CallTrace&) = delete;
    virtual ~CallTrace() = default;

    virtual void write(const std::string& line) = 0;
};

using CallTracePtr = std::shared_ptr<CallTrace>;

/// Returns a trace that is appended to a file, line by line, so that none is lost when the program is ended.
/// Raises kFileCouldNotBeSaved.
CallTracePtr makeFileTrace(const std::string& path);

/// Returns a value as a trace shows it: texts in quotes with their control characters escaped, objects as
/// "object".
std::string shownValue(const Value& value);

}  // namespace mergeloom::com
