#pragma once

#include "ui/help/clsHtmlHelp.h"

#include <QObject>
#include <QPointer>
#include <string>

class QAbstractButton;
class QWidget;

namespace mergeloom {

/// The property of a control, a form or any widget between them that names the topic about it, by the topic's
/// path in the help file.
inline constexpr const char* kHelpTopicProperty = "helpTopic";
/// Sets the page of the help for a widget and its children.
void setHelpTopic(QWidget& widget, const char* topic);

/// Attaches help to a form: its help button and F1, wherever the focus is in it, open the help about the
/// control that has the focus, or else about the widgets around it, or else the contents. When the form
/// closes, so do its help windows. A click on the button opens the help about the control that had the focus
/// before.
class clsHtmlHelpForForm final : public QObject {
    Q_OBJECT

  public:
    /// An empty help file means the program's own. The form, the button and the port have to outlive it.
    clsHtmlHelpForForm(QWidget& form, QAbstractButton& helpButton, const std::string& helpFile,
                       const std::string& defaultHelpFile, HtmlHelpPort& port);

    void mcmdHelp_Click() { openHelp(); }
    /// Opens the help for Qt::Key_F1 and ignores other keys.
    void mfrm_KeyDown(int key);
    /// Closes the form's help windows; does nothing when none is open.
    void mfrm_QueryUnload() { help_.CloseHelpWindows(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void openHelp();
    [[nodiscard]] std::string topicOfFocus() const;

    QWidget& form_;
    clsHtmlHelp help_;
    QPointer<QWidget> beforeButton_;
};

}  // namespace mergeloom
