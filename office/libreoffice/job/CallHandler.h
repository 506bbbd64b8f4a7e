#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/uno/XComponentContext.hpp>
#include <cstdint>
#include <memory>
#include <string>

namespace mergeloom::libreoffice {

/// Executes requests inside the library that the office has loaded.
class CallHandler {
  public:
    CallHandler() = default;
    CallHandler(const CallHandler&) = delete;
    CallHandler& operator=(const CallHandler&) = delete;
    virtual ~CallHandler() = default;

    /// Returns the answer to a request. Is only called on the office's main thread.
    virtual std::string answer(const std::string& request) = 0;
    /// Registers a document and returns its number.
    virtual std::int64_t take(const DocumentReference& document) = 0;
};

/// Makes the handler. Each library that an office loads defines this function once.
std::unique_ptr<CallHandler> makeCallHandler(const Reference<css::uno::XComponentContext>& office);

}  // namespace mergeloom::libreoffice
