#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/uno/XComponentContext.hpp>
#include <cstdint>
#include <memory>
#include <string>

namespace mergeloom::libreoffice {

/// Carries out requests in the library that the office has loaded.
class CallHandler {
  public:
    CallHandler() = default;
    CallHandler(const CallHandler&) = delete;
    CallHandler& operator=(const CallHandler&) = delete;
    virtual ~CallHandler() = default;

    /// Returns the answer to a request; called only on the office's main thread.
    virtual std::string answer(const std::string& request) = 0;
    /// Makes a document known to the library and returns its number.
    virtual std::int64_t take(const DocumentReference& document) = 0;
};

/// Returns the handler of a library that is being loaded. Each library defines it once.
std::unique_ptr<CallHandler> makeCallHandler(const Reference<css::uno::XComponentContext>& office);

}  // namespace mergeloom::libreoffice
