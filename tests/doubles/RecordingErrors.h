#pragma once

#include "base/ErrorHandler.h"

#include <string>
#include <vector>

namespace mergeloom {

/// Keeps the reports as "module.procedure: description".
class RecordingErrors final : public ErrorHandler {
  public:
    void report(const ErrorReport& report) override {
        reports.push_back(report.module + "." + report.procedure + ": " + report.description);
    }

    std::vector<std::string> reports;
};

}  // namespace mergeloom
