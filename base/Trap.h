#pragma once

#include "base/ErrorHandler.h"
#include "base/SourcePlace.h"

#include <exception>
#include <source_location>
#include <string>

namespace mergeloom {

/// Runs the body of a procedure under its trap: an error ends the body and goes to the error handler under
/// the procedure's name, with the comment as it reads then. What throws an AutomationError is known by its
/// place; for other errors it is the place of the trap.
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
