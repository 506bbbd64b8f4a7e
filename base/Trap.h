#pragma once

#include "base/ErrorHandler.h"

#include <exception>
#include <string>

namespace mergeloom {

/// Runs the body of a procedure under its trap: an error ends the body and goes to the error handler under
/// the procedure's name.
template <typename Body>
void trap(ErrorHandler& errors, const char* module, const char* procedure, const Body& body) {
    try {
        body();
    } catch (const AutomationError& error) {
        errors.report({error.number(), error.description(), {}, module, procedure});
    } catch (const std::exception& error) {
        errors.report({0, error.what(), {}, module, procedure});
    }
}

}  // namespace mergeloom
