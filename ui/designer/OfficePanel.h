#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace mergeloom {

/// What stands in the document's place while there is none: the office starts, or it is gone.
class OfficePanel final : public QWidget {
    Q_OBJECT

  public:
    explicit OfficePanel(QWidget* parent);

    void showStarting();
    /// The sentence tells why there is no document.
    void showStopped(const QString& sentence);

  Q_SIGNALS:
    void cancelRequested();
    void startRequested();

  private:
    QLabel* sentence_;
    QProgressBar* progress_;
    QPushButton* cmdCancel_;
    QPushButton* cmdStart_;
};

}  // namespace mergeloom
