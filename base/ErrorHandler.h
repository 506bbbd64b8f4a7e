#pragma once

#include "base/AutomationError.h"

#include <string>

namespace mergeloom {

/// What a procedure's trap knows of an unexpected error.
struct ErrorReport {
    ErrorNumber number = 0;
    std::string description;
    std::string comment;  ///< what the procedure was working on; may be empty
    std::string module;
    std::string procedure;
    std::string place{};  ///< file and line of what threw the error, else of the trap; empty where unknown
};

/// Returns the procedure with its module and the place, as "COptions.init (xml/COptions.cpp:14)".
inline std::string shownProcedure(const ErrorReport& report) {
    const std::string name = report.module + "." + report.procedure;
    return report.place.empty() ? name : name + " (" + report.place + ")";
}

/// Where unexpected errors end: each procedure's trap reports here and then answers as its rules say.
class ErrorHandler {
  public:
    ErrorHandler() = default;
    ErrorHandler(const ErrorHandler&) = delete;
    ErrorHandler& operator=(const ErrorHandler&) = delete;
    virtual ~ErrorHandler() = default;

    virtual void report(const ErrorReport& report) = 0;
};

}  // namespace mergeloom
