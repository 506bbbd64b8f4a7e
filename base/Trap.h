#pragma once

#include "base/ErrorHandler.h"
#include "base/SourcePlace.h"

#include <exception>
#include <source_location>
#include <string>

namespace mergeloom {

/// Runs the body of a procedure under its trap: an error ends the body and is passed to the error handler
/// with the procedure's name and the comment's text at that moment. An AutomationError has its own place; for
/// other errors the place is that of the trap.
template <typename Body>
void trap(ErrorHandler& errors, const char* module, const char* procedure, const Body& body,
          const std::string& comment = {},
          const std::source_location& place = std::source_location::current()) {
    try {
        body();
    } catch (const AutomationError& error) {
        errors.report(
            {error.number(), error.description(), comment, module, procedure, shownPlace(error.place())});
    } catch (const std::exception& error) {
        errors.report({0, error.what(), comment, module, procedure, shownPlace(place)});
    }
}

}  // namespace mergeloom
