#pragma once

#include "ui/help/HelpFile.h"

#include <QMainWindow>
#include <memory>

class QLineEdit;
class QListWidget;
class QTabWidget;
class QTreeWidget;

namespace mergeloom {

class HelpBrowser;

/// A window that shows a help file: contents, index and search on the left, a topic on the right. It is
/// deleted when it is closed.
class HelpWindow final : public QMainWindow {
    Q_OBJECT

  public:
    HelpWindow(const std::shared_ptr<HelpFile>& file, QWidget* owner);

    [[nodiscard]] const HelpFile& file() const { return *file_; }
    void showContents();
    void showIndex();
    /// Shows the search; searches at once when the query is not empty.
    void showSearch(const QString& query);
    /// Shows a topic; the status bar names one that does not exist.
    void showTopic(const QString& topic);
    /// Returns the path of the topic that is shown.
    [[nodiscard]] QString topic() const;

  private:
    void makePages();
    [[nodiscard]] QWidget* makeContentsPage();
    [[nodiscard]] QWidget* makeIndexPage();
    [[nodiscard]] QWidget* makeSearchPage();
    void makeActions();
    void connectLines(const QListWidget& lines);
    void narrowIndex(const QString& beginning);
    void enterList(QListWidget& lines);
    void search();
    void markInContents(const QString& topic);
    void showProblem(const QString& sentence);

    std::shared_ptr<HelpFile> file_;
    QTabWidget* pages_ = nullptr;
    QTreeWidget* contents_ = nullptr;
    QLineEdit* indexBox_ = nullptr;
    QListWidget* index_ = nullptr;
    QLineEdit* searchBox_ = nullptr;
    QListWidget* hits_ = nullptr;
    HelpBrowser* browser_ = nullptr;
};

}  // namespace mergeloom
