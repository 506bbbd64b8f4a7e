#pragma once

#include "base/ErrorHandler.h"

#include <string>
#include <vector>

namespace mergeloom {

/// Records the reports as "module.procedure: description".
class RecordingErrors final : public ErrorHandler {
  public:
    void report(const ErrorReport& report) override {
        reports.push_back(report.module + "." + report.procedure + ": " + report.description);
        comments.push_back(report.comment);
    }

    std::vector<std::string> reports;
    std::vector<std::string> comments;  ///< of the reports
};

}  // namespace mergeloom
