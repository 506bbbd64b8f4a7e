#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace mergeloom {

/// The panel in place of the document while there is none: the office starts, or it has ended.
class OfficePanel final : public QWidget {
    Q_OBJECT

  public:
    explicit OfficePanel(QWidget* parent);

    void showStarting();
    /// Shows that the office runs and opens a template, which cannot be cancelled any more.
    void showOpening();
    /// Shows the sentence, which says why there is no document.
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
