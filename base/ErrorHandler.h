#pragma once

#include "base/AutomationError.h"

#include <exception>
#include <source_location>
#include <string>

namespace mergeloom {

/// The report of an unexpected error by the trap of a procedure.
struct ErrorReport {
    ErrorNumber number = 0;
    std::string description;
    std::string comment;  ///< what the procedure was working on; may be empty
    std::string module;
    std::string procedure;
    std::string place{};  ///< file and line of the throw, otherwise of the trap; empty when unknown
};

/// Returns the procedure with its module and the place, as "COptions.init (xml/COptions.cpp:14)".
inline std::string shownProcedure(const ErrorReport& report) {
    const std::string name = report.module + "." + report.procedure;
    return report.place.empty() ? name : name + " (" + report.place + ")";
}

/// Receives unexpected errors: each procedure's trap reports here and then returns as its contract requires.
class ErrorHandler {
  public:
    ErrorHandler() = default;
    ErrorHandler(const ErrorHandler&) = delete;
    ErrorHandler& operator=(const ErrorHandler&) = delete;
    virtual ~ErrorHandler() = default;

    virtual void report(const ErrorReport& report) = 0;
};

/// Returns a place of the source as "xml/COptions.cpp:14". The build makes file names relative to the
/// project.
inline std::string shownPlace(const std::source_location& place) {
    return place.file_name() + (":" + std::to_string(place.line()));
}

inline std::string noComment() {
    return {};
}

/// Runs the body of a procedure under its trap: an error ends the body and is passed to the error handler
/// with the procedure's name and the comment, a function that returns the text at that time. An
/// AutomationError has its own place; for other errors the place is that of the trap.
template <typename Body, typename Comment = decltype(&noComment)>
void trap(ErrorHandler& errors, const char* module, const char* procedure, const Body& body,
          const Comment& comment = noComment,
          const std::source_location& place = std::source_location::current()) {
    try {
        body();
    } catch (const AutomationError& error) {
        errors.report(
            {error.number(), error.description(), comment(), module, procedure, shownPlace(error.place())});
    } catch (const std::exception& error) {
        errors.report({0, error.what(), comment(), module, procedure, shownPlace(place)});
    }
}

}  // namespace mergeloom
