#pragma once

#include "base/ErrorHandler.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>

namespace mergeloom {

/// What the dialog of errors cannot find out by itself.
struct ErrorDialogSettings {
    /// Asked on the thread that reports, which may be the office's own; empty while no office runs.
    std::function<std::string()> officeBuild = [] { return std::string(); };
    /// Takes a line for each error, from the thread that reports.
    std::function<void(const std::string&)> log = [](const std::string&) {};
    /// Where users write to: by default the address of this build. Without one there is no button for it.
    std::string supportAddress = addressOfBuild();
    /// Where the reports are kept: by default the user's state folder.
    std::string reportFolder = folderOfUser();

    static std::string addressOfBuild();
    static std::string folderOfUser();
};

/// Tells the user of an unexpected error and keeps a report of it, which the user can read and send. May be
/// called by any thread.
class ErrorDialog final : public ErrorHandler {
  public:
    explicit ErrorDialog(QWidget* owner, ErrorDialogSettings settings = {})
        : owner_(owner), settings_(std::move(settings)) {}

    void report(const ErrorReport& report) override;

  private:
    [[nodiscard]] std::string reportText(const ErrorReport& report) const;

    QPointer<QWidget> owner_;
    ErrorDialogSettings settings_;
};

}  // namespace mergeloom
