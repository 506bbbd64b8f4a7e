#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/uno/Exception.hpp>

namespace mergeloom::libreoffice {

/// Raises the program's error for the exception of UNO that is being handled: kObjectDeleted when the object
/// that was called is gone, such as a document that was closed, otherwise kCommandFailed with UNO's message.
[[noreturn]] void raiseUnoError();

/// Runs the body, which calls into UNO, and returns its result. Errors as for raiseUnoError; AutomationErrors
/// pass through.
template <typename Call>
auto translatingErrors(const Call& body) -> decltype(body()) {
    try {
        return body();
    } catch (const css::uno::Exception&) {
        raiseUnoError();
    }
}

}  // namespace mergeloom::libreoffice
