#pragma once

#include "office/libreoffice/calls/CallPipe.h"
#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/task/XJob.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <string>

namespace mergeloom::libreoffice {

/// The commands to the library, each the name of the one value with which its job is executed.
inline constexpr const char* kInsideConnect = "connect";    ///< with the folder of a CallListener
inline constexpr const char* kInsideServe = "serve";        ///< the main thread is to read requests
inline constexpr const char* kInsideDocument = "document";  ///< returns the document's number

/// Returns the path of the library that the office loads for the object model, beside this code's own file.
std::string insideLibrary();

/// The connection to a library of ours inside the office's process, which carries out requests on the
/// office's main thread. A request and its answer take some 20 microseconds. From the first request until
/// rest(), or until none came for a while, the main thread does nothing else, so that no user's edit comes in
/// between. Members raise UNO's exceptions; std::runtime_error when the office has gone.
class InsideLine {
  public:
    /// Has the office load the library; the folder is one that both processes see.
    InsideLine(const Reference<css::uno::XComponentContext>& office, const std::string& library,
               const std::string& folder);

    /// Returns the library's answer to a request.
    std::string ask(const std::string& request);
    /// Makes a document known to the library and returns its number there.
    std::int64_t handOver(const DocumentReference& document);
    /// Lets the main thread go on with its own work.
    void rest();

  private:
    CallFrame receive();

    Reference<css::task::XJob> job_;
    CallPipe pipe_;
    bool isServed_ = false;  ///< as far as is known here: it ends by itself, too
};

}  // namespace mergeloom::libreoffice
