#pragma once

#include "base/ErrorHandler.h"
#include "office/model/DocumentHost.h"

#include <string>
#include <utility>

namespace mergeloom {

/// Returns the path of a hosted document, or the name of one that was never saved; empty for none.
std::string nameOf(const HostedDocument& hosted);

/// Adds the name of the document to reports of errors while work on it is done.
class DocumentErrors final : public ErrorHandler {
  public:
    /// The error handler has to outlive it.
    DocumentErrors(ErrorHandler& errors, std::string document)
        : errors_(errors), document_(std::move(document)) {}

    void report(const ErrorReport& report) override;

  private:
    ErrorHandler& errors_;
    std::string document_;
};

}  // namespace mergeloom
