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
    /// The office runs; what it opens cannot be given up any more.
    void showOpening();
    /// The sentence tells why there is no document.
    void showStopped(const QString& sentence);

  Q_SIGNALS:
    void cancelRequested();
    void startRequested();

  private:
    void showProgress(const QString& sentence, bool canBeGivenUp);

    QLabel* sentence_;
    QProgressBar* progress_;
    QPushButton* cmdCancel_;
    QPushButton* cmdStart_;
};

}  // namespace mergeloom
