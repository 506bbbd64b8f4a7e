#pragma once

#include "ui/help/clsHtmlHelp.h"

#include <QObject>
#include <string>

class QWidget;

namespace mergeloom {

/// Opens the help about the dialog that is open when the user presses F1 in it. The help window belongs to
/// the dialog, so that it can be used beside it.
class DialogHelp final : public QObject {
    Q_OBJECT

  public:
    /// The port has to outlive it.
    DialogHelp(HtmlHelpPort& port, const std::string& helpFile);
    ~DialogHelp() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    clsHtmlHelp help_;
};

}  // namespace mergeloom
