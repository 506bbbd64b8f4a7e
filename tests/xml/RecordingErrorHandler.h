#pragma once

#include "base/ErrorHandler.h"

#include <vector>

namespace mergeloom {

/// Keeps what is reported.
class RecordingErrorHandler : public ErrorHandler {
  public:
    void report(const ErrorReport& report) override { reports.push_back(report); }

    std::vector<ErrorReport> reports;
};

}  // namespace mergeloom
