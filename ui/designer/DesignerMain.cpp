#include "ui/designer/DesignerMain.h"

#include "app/GnuOptions.h"
#include "app/MappingBeforeDesigner.h"
#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/ConsoleOutput.h"
#include "ui/designer/frmMain.h"
#include "ui/dialogs/ErrorDialog.h"
#include "ui/dialogs/MessageBoxes.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <span>
#include <string>
#include <vector>

namespace mergeloom {

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;
constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr const char* kXcb = "xcb";
constexpr const char* kNoDisplay =
    "The designer needs a display (X11, on Wayland through XWayland), and there is none that it can open. "
    "Set "
    "DISPLAY, or add -hidden to make the template without a window.\n";

GnuOptions readCommandLine(int count, char** values) {
    const std::vector<std::string> arguments(values + (count > 0 ? 1 : 0), values + count);
    const GnuOptions options = readGnuOptions(arguments);
    std::string commandLine;
    GetCommandLineArguments(
        CommandLineText::fromArguments(std::span(arguments).subspan(options.firstArgument)), commandLine);
    gExcelMode = GetCommandLineArgument(kExcelSwitch).empty() ? 0 : 1;
    RefuseDeletionOfDatabase();
    return options;
}

/// Chooses X11, the only window system in which the office can be embedded.
void choosePlatform() {
    if (!qgetenv(kPlatform).startsWith(kXcb)) qputenv(kPlatform, kXcb);
}

/// Ends with a sentence for users when the toolkit finds no display; its own message is for developers.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
    if (type != QtFatalMsg) return;
    std::fputs(kNoDisplay, stderr);
    std::_Exit(kFailure);
}

int showWindow() {
    frmMain window(gExcelMode == 0 ? DocumentKind::Word : DocumentKind::Excel);
    window.show();
    QTimer::singleShot(0, &window, [&window] { window.start(); });
    return QApplication::exec();
}

/// Makes the mapping that the window is to show, with messages and questions in windows of their own.
bool mapFirst(const GnuOptions& options) {
    if (GetCommandLineArgument(kFieldsSwitch).empty()) return true;
    // The program does not end with the last of these windows.
    QApplication::setQuitOnLastWindowClosed(false);
    MessageBoxes messages{nullptr};
    ErrorDialog errors{nullptr};
    NoProgress progress;
    const bool mapped = mapBeforeDesigner(options, errors, messages, progress);
    QApplication::setQuitOnLastWindowClosed(true);
    return mapped;
}

int mapAndShow(const GnuOptions& options) {
    if (mapFirst(options)) return showWindow();
    return options.exitStatus == ExitStatus::ShowsFailure ? kFailure : kSuccess;
}

int runWith(const GnuOptions& options, char** values) {
    choosePlatform();
    // The office's window is native; the tree and the bars need not be.
    QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    // The toolkit would take switches of its own out of the arguments, so it gets none.
    int programAlone = 1;
    const QtMessageHandler usual = qInstallMessageHandler(endWithoutDisplay);
    const QApplication application(programAlone, values);
    qInstallMessageHandler(usual);
    QApplication::setApplicationName(QStringLiteral("Mergeloom"));
    // By this name the desktop finds the program's icon.
    QApplication::setDesktopFileName(QStringLiteral("mergeloom"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("mergeloom")));
    return mapAndShow(options);
}

}  // namespace

int runDesigner(int& count, char** values) {
    try {
        return runWith(readCommandLine(count, values), values);
    } catch (const std::exception& error) {
        std::fputs(error.what(), stderr);
        std::fputs("\n", stderr);
        return kFailure;
    }
}

}  // namespace mergeloom
