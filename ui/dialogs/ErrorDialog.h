#pragma once

#include "base/ErrorHandler.h"

#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>

namespace mergeloom {

/// The settings that the dialog of errors cannot find out by itself.
struct ErrorDialogSettings {
    /// Returns the build of the office; empty while no office runs. Called on the thread that reports, which
    /// may be the office's own.
    std::function<std::string()> officeBuild = [] { return std::string(); };
    /// Logs a line for each error; called on the thread that reports.
    std::function<void(const std::string&)> log = [](const std::string&) {};
    /// The address to which users send reports: by default that of this build. If it is empty, users enter
    /// one in their mail program.
    std::string supportAddress = addressOfBuild();
    /// The folder for reports: by default the user's state folder.
    std::string reportFolder = folderOfUser();

    static std::string addressOfBuild();
    static std::string folderOfUser();
};

/// Shows errors to the user: those that a user can correct as a plain message, all others with a report that
/// the user can read, save and send. May be called by any thread.
class ErrorDialog final : public ErrorHandler {
  public:
    explicit ErrorDialog(QWidget* owner, ErrorDialogSettings settings = {})
        : owner_(owner), settings_(std::move(settings)) {}

    void report(const ErrorReport& report) override;

  private:
    void showMessage(const ErrorReport& report);
    void showUnexpected(const ErrorReport& report);
    [[nodiscard]] std::string reportText(const ErrorReport& report) const;

    QPointer<QWidget> owner_;
    ErrorDialogSettings settings_;
};

}  // namespace mergeloom
