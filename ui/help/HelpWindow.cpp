#include "ui/help/HelpWindow.h"

#include "base/AutomationError.h"
#include "ui/help/HelpBrowser.h"

#include <QAction>
#include <QCollator>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace mergeloom {

namespace {

constexpr int kTopicRole = Qt::UserRole;
constexpr double kShareOfScreen = 0.75;
constexpr int kShareOfPages = 1;
constexpr int kShareOfTopic = 2;

void addEntries(QTreeWidgetItem* parent, const std::vector<HelpEntry>& entries) {
    for (const HelpEntry& entry : entries) {
        auto* const item = new QTreeWidgetItem(parent, {entry.title});
        item->setData(0, kTopicRole, entry.topic);
        addEntries(item, entry.children);
    }
}

void addLine(QListWidget& list, const QString& title, const QString& topic) {
    auto* const item = new QListWidgetItem(title, &list);
    item->setData(kTopicRole, topic);
}

/// Returns the entries as readers look for them: without regard to case, numbers by their value.
std::vector<HelpEntry> inOrder(std::vector<HelpEntry> entries) {
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::ranges::stable_sort(entries, [&](const HelpEntry& one, const HelpEntry& other) {
        return collator.compare(one.title, other.title) < 0;
    });
    return entries;
}

/// Makes a page with a box to type in, with its label, above a list.
QWidget* makePage(const QString& label, QLineEdit* box, QListWidget* list) {
    auto* const page = new QWidget;
    auto* const title = new QLabel(label);
    title->setBuddy(box);
    auto* const layout = new QVBoxLayout(page);
    layout->addWidget(title);
    layout->addWidget(box);
    layout->addWidget(list);
    return page;
}

}  // namespace

HelpWindow::HelpWindow(const std::shared_ptr<HelpFile>& file, QWidget* owner)
    : QMainWindow(owner, Qt::Window), file_(file) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(file->title().isEmpty() ? tr("Help") : file->title());
    browser_ = new HelpBrowser(
        file, [this](const QString& sentence) { showProblem(sentence); }, this);
    browser_->setAccessibleName(tr("Topic"));
    makePages();
    makeActions();
    auto* const panes = new QSplitter(this);
    panes->addWidget(pages_);
    panes->addWidget(browser_);
    panes->setStretchFactor(0, kShareOfPages);
    panes->setStretchFactor(1, kShareOfTopic);
    panes->setChildrenCollapsible(false);
    setCentralWidget(panes);
    resize(screen()->availableSize() * kShareOfScreen);
    connect(browser_, &QTextBrowser::sourceChanged, this, [this](const QUrl& source) {
        statusBar()->clearMessage();
        markInContents(HelpBrowser::topicOf(source));
    });
    showTopic(file->defaultTopic());
}

void HelpWindow::makePages() {
    pages_ = new QTabWidget(this);
    pages_->addTab(makeContentsPage(), tr("&Contents"));
    pages_->addTab(makeIndexPage(), tr("&Index"));
    pages_->addTab(makeSearchPage(), tr("&Search"));
}

QWidget* HelpWindow::makeContentsPage() {
    contents_ = new QTreeWidget;
    contents_->setAccessibleName(tr("Contents"));
    contents_->setHeaderHidden(true);
    addEntries(contents_->invisibleRootItem(), file_->contents());
    contents_->expandAll();
    connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        const QString topic = item == nullptr ? QString() : item->data(0, kTopicRole).toString();
        if (!topic.isEmpty()) showTopic(topic);
    });
    return contents_;
}

QWidget* HelpWindow::makeIndexPage() {
    indexBox_ = new QLineEdit;
    index_ = new QListWidget;
    index_->setAccessibleName(tr("Index"));
    for (const HelpEntry& entry : inOrder(file_->index())) {
        addLine(*index_, entry.title, entry.topic);
    }
    connect(indexBox_, &QLineEdit::textChanged, this, &HelpWindow::narrowIndex);
    connect(indexBox_, &QLineEdit::returnPressed, this, [this] { enterList(*index_); });
    connectLines(*index_);
    return makePage(tr("&Look for:"), indexBox_, index_);
}

QWidget* HelpWindow::makeSearchPage() {
    searchBox_ = new QLineEdit;
    hits_ = new QListWidget;
    hits_->setAccessibleName(tr("Topics found"));
    connect(searchBox_, &QLineEdit::returnPressed, this, &HelpWindow::search);
    connectLines(*hits_);
    return makePage(tr("&Words, then Enter:"), searchBox_, hits_);
}

void HelpWindow::connectLines(const QListWidget& lines) {
    const auto show = [this](const QListWidgetItem* item) { showTopic(item->data(kTopicRole).toString()); };
    connect(&lines, &QListWidget::itemClicked, this, show);
    connect(&lines, &QListWidget::itemActivated, this, show);
}

void HelpWindow::makeActions() {
    QToolBar* const bar = addToolBar(tr("Help"));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](QStyle::StandardPixmap icon, const QString& text, const QKeySequence& key,
                         const auto& handler) {
        QAction* const action = bar->addAction(style()->standardIcon(icon), text, this, handler);
        action->setShortcut(key);
        return action;
    };
    QAction* const back =
        add(QStyle::SP_ArrowBack, tr("&Back"), QKeySequence::Back, [this] { browser_->backward(); });
    QAction* const forward =
        add(QStyle::SP_ArrowForward, tr("&Forward"), QKeySequence::Forward, [this] { browser_->forward(); });
    add(QStyle::SP_DirHomeIcon, tr("&Home"), Qt::ALT | Qt::Key_Home,
        [this] { showTopic(file_->defaultTopic()); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    bar->addSeparator();
    bar->addAction(tr("Lar&ger"), this, [this] { browser_->zoomBy(1); })
        ->setShortcuts({QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    bar->addAction(tr("S&maller"), this, [this] { browser_->zoomBy(-1); })
        ->setShortcut(QKeySequence::ZoomOut);
    bar->addAction(tr("&Normal Size"), this, [this] { browser_->resetZoom(); })
        ->setShortcut(Qt::CTRL | Qt::Key_0);

    auto* const close = new QAction(this);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
}

void HelpWindow::showContents() {
    pages_->setCurrentWidget(contents_);
}

void HelpWindow::showIndex() {
    pages_->setCurrentWidget(indexBox_->parentWidget());
    indexBox_->setFocus();
}

void HelpWindow::showSearch(const QString& query) {
    pages_->setCurrentWidget(searchBox_->parentWidget());
    searchBox_->setFocus();
    searchBox_->setText(query);
    if (!query.isEmpty()) search();
}

void HelpWindow::showTopic(const QString& topic) {
    browser_->showTopic(topic);
}

QString HelpWindow::topic() const {
    return browser_->topic();
}

void HelpWindow::narrowIndex(const QString& beginning) {
    for (int row = 0; row < index_->count(); ++row) {
        QListWidgetItem* const item = index_->item(row);
        item->setHidden(!item->text().contains(beginning, Qt::CaseInsensitive));
    }
}

void HelpWindow::search() {
    hits_->clear();
    try {
        for (const HelpHit& hit : file_->search(searchBox_->text())) {
            addLine(*hits_, hit.title, hit.topic);
        }
        if (hits_->count() == 0) showProblem(tr("No topic holds all of these words."));
        enterList(*hits_);
    } catch (const AutomationError& error) {
        showProblem(QString::fromStdString(error.description()));
    }
}

/// Shows the topic of the only line that is left; of several lines the user chooses one.
void HelpWindow::enterList(QListWidget& lines) {
    std::vector<QListWidgetItem*> left;
    for (int row = 0; row < lines.count(); ++row) {
        if (!lines.item(row)->isHidden()) left.push_back(lines.item(row));
    }
    if (left.empty()) return;
    lines.setCurrentItem(left.front());
    if (left.size() > 1) return lines.setFocus();
    showTopic(left.front()->data(kTopicRole).toString());
}

/// Marks the topic in the contents. A topic may be there several times; the first one is marked, unless
/// another one is already.
void HelpWindow::markInContents(const QString& topic) {
    const QTreeWidgetItem* const current = contents_->currentItem();
    if (current != nullptr && current->data(0, kTopicRole) == topic) return;
    const QSignalBlocker quiet(contents_);
    for (QTreeWidgetItemIterator at(contents_); *at != nullptr; ++at) {
        if ((*at)->data(0, kTopicRole) == topic) return contents_->setCurrentItem(*at);
    }
}

void HelpWindow::showProblem(const QString& sentence) {
    statusBar()->showMessage(sentence);
}

}  // namespace mergeloom
