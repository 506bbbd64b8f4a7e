#pragma once

#include "base/ErrorHandler.h"

#include <exception>
#include <string>

namespace mergeloom {

/// Runs the body of a procedure under its trap: an error ends the body and goes to the error handler under
/// the procedure's name, with the comment as it reads then.
template <typename Body>
void trap(ErrorHandler& errors, const char* module, const char* procedure, const Body& body,
          const std::string& comment = {}) {
    try {
        body();
    } catch (const AutomationError& error) {
        errors.report({error.number(), error.description(), comment, module, procedure});
    } catch (const std::exception& error) {
        errors.report({0, error.what(), comment, module, procedure});
    }
}

}  // namespace mergeloom
