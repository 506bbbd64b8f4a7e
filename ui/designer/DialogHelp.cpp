#include "ui/designer/DialogHelp.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QWidget>

namespace mergeloom {

namespace {

struct DialogTopic {
    const char* dialog;  ///< the name of the dialog's object
    const char* topic;
};

constexpr DialogTopic kTopics[] = {
    {"frmFields", "select-fields.html"},
    {"errorWindow", "error-report.html"},
    {"reportWindow", "error-report.html"},
};

/// The topic about the window, to which the questions of all other dialogs belong.
constexpr const char* kOtherTopic = "window.html";

std::string topicOf(const QWidget& dialog) {
    if (qobject_cast<const QFileDialog*>(&dialog) != nullptr) return "file-dialogs.html";
    for (const DialogTopic& known : kTopics) {
        if (dialog.objectName() == QLatin1String(known.dialog)) return known.topic;
    }
    return kOtherTopic;
}

bool isHelpKey(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

}  // namespace

DialogHelp::DialogHelp(HtmlHelpPort& port, const std::string& helpFile) : help_(port) {
    help_.SetFile(helpFile);
    qApp->installEventFilter(this);
}

DialogHelp::~DialogHelp() {
    qApp->removeEventFilter(this);
}

bool DialogHelp::eventFilter(QObject* watched, QEvent* event) {
    if (!isHelpKey(*event) || !watched->isWidgetType()) return false;
    const QWidget* const dialog = QApplication::activeModalWidget();
    const auto* const widget = static_cast<const QWidget*>(watched);
    if (dialog == nullptr || widget->window() != dialog) return false;
    help_.OpenTopic(dialog->winId(), topicOf(*dialog));
    return true;
}

}  // namespace mergeloom
