#pragma once

#include "base/ErrorHandler.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>

namespace mergeloom {

/// Where the reports of problems go and what the dialog cannot find out by itself.
struct ErrorDialogSettings {
    /// Asked on the thread that reports, which may be the office's own; empty while no office runs.
    std::function<std::string()> officeBuild = [] { return std::string(); };
    /// Empty for a program that has no address to write to.
    std::string supportAddress = builtInSupportAddress();
    /// The folder for the reports' text files.
    std::string reportFolder = defaultReportFolder();

    static std::string builtInSupportAddress();
    static std::string defaultReportFolder();
};

/// Tells the user of an unexpected error and keeps a report of it, which the user can read and send. May be
/// called by any thread.
class ErrorDialog final : public ErrorHandler {
  public:
    explicit ErrorDialog(QWidget* owner, ErrorDialogSettings settings = {});

    void report(const ErrorReport& report) override;

  private:
    QPointer<QWidget> owner_;
    ErrorDialogSettings settings_;
};

}  // namespace mergeloom
