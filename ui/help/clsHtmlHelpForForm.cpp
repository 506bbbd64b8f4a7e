#include "ui/help/clsHtmlHelpForForm.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QShortcut>
#include <QVariant>

namespace mergeloom {

void setHelpTopic(QWidget& widget, const char* topic) {
    widget.setProperty(kHelpTopicProperty, QString::fromLatin1(topic));
}

clsHtmlHelpForForm::clsHtmlHelpForForm(QWidget& form, QAbstractButton& helpButton,
                                       const std::string& helpFile, const std::string& defaultHelpFile,
                                       HtmlHelpPort& port)
    : form_(form), help_(port) {
    help_.SetFile(helpFile.empty() ? defaultHelpFile : helpFile);
    form.installEventFilter(this);
    // A shortcut is handled before the controls get the key.
    auto* const key = new QShortcut(QKeySequence(Qt::Key_F1), &form);
    connect(key, &QShortcut::activated, this, [this] { mfrm_KeyDown(Qt::Key_F1); });
    connect(&helpButton, &QAbstractButton::clicked, this, &clsHtmlHelpForForm::mcmdHelp_Click);
    // A click gives the button the focus first; the user asks about the control that had it before.
    connect(qApp, &QApplication::focusChanged, this, [this, &helpButton](QWidget* old, const QWidget* now) {
        beforeButton_ = now == &helpButton ? old : nullptr;
    });
}

void clsHtmlHelpForForm::mfrm_KeyDown(int key) {
    if (key == Qt::Key_F1) openHelp();
}

bool clsHtmlHelpForForm::eventFilter(QObject* watched, QEvent* event) {
    // A form may refuse to be closed; one that was closed is hidden by itself and not by the window system.
    if (watched == &form_ && event->type() == QEvent::Hide && !event->spontaneous()) mfrm_QueryUnload();
    return QObject::eventFilter(watched, event);
}

void clsHtmlHelpForForm::openHelp() {
    const std::string topic = topicOfFocus();
    const WindowHandle owner = form_.window()->winId();
    topic.empty() ? help_.OpenTOC(owner) : help_.OpenTopic(owner, topic);
}

std::string clsHtmlHelpForForm::topicOfFocus() const {
    const QWidget* at = beforeButton_ ? beforeButton_.data() : form_.window()->focusWidget();
    if (at == nullptr || !form_.isAncestorOf(at)) at = &form_;
    while (at != nullptr) {
        const QString topic = at->property(kHelpTopicProperty).toString();
        if (!topic.isEmpty()) return topic.toStdString();
        at = at == &form_ ? nullptr : at->parentWidget();
    }
    return {};
}

}  // namespace mergeloom
