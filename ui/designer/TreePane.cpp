#include "ui/designer/TreePane.h"

#include "ui/designer/StartPage.h"
#include "ui/designer/TreeModel.h"
#include "ui/designer/TreePaneView.h"

#include <QAction>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

namespace mergeloom {

namespace {

/// The time in milliseconds before which a load shows no bar, which would only flicker.
constexpr int kLoadingShownAfter = 300;

}  // namespace

TreePaneSearch::TreePaneSearch(QLineEdit& box, QLabel& result, TreePaneView& view, TreeModel& model)
    : QObject(&view), box_(box), result_(result), view_(view), model_(model) {
    box_.installEventFilter(this);
    result_.hide();
    connect(&box_, &QLineEdit::textChanged, this, &TreePaneSearch::search);
    connect(&filter_, &TreeFilter::found, this, [this](const auto& matches) { showMatches(*matches); });
}

void TreePaneSearch::setTree(std::shared_ptr<TreeView> tree) {
    former_.reset();
    box_.clear();
    result_.hide();
    filter_.setTree(std::move(tree));
}

void TreePaneSearch::search() {
    if (model_.tree() == nullptr) return;
    const QString words = box_.text().simplified();
    if (words.isEmpty()) {
        filter_.cancel();
        showAll();
    } else {
        if (!former_) former_ = treeState();
        filter_.find(words);
    }
}

TreePaneSearch::TreeState TreePaneSearch::treeState() const {
    const TreeNode* const selected = view_.selectedNode();
    return {view_.expandedNodes(), selected != nullptr ? selected->Index() : 0, view_.scrollPosition()};
}

void TreePaneSearch::showMatches(TreeFilterMatches& matches) {
    firstMatch_ = matches.first;
    result_.setText(matches.count == 0 ? tr("Nothing found") : tr("%n found", nullptr, matches.count));
    result_.show();
    view_.showRows(std::move(matches.rows), std::move(matches.expanded));
}

void TreePaneSearch::showAll() {
    if (!former_) return;
    const TreeState state = *std::exchange(former_, std::nullopt);
    result_.hide();
    view_.showRows(model_.allRows(), state.expanded);
    view_.clearSelection();
    view_.selectNode(state.selected);
    view_.scrollToPosition(state.scrollPosition);
}

bool TreePaneSearch::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &box_ || event->type() != QEvent::KeyPress) return false;
    switch (static_cast<const QKeyEvent&>(*event).key()) {
        case Qt::Key_Escape:
            box_.clear();
            return true;
        case Qt::Key_Down:
            enterTree();
            return true;
        default:
            return false;
    }
}

/// Moves from the box to the first match.
void TreePaneSearch::enterTree() {
    if (view_.selectedNode() == nullptr) view_.selectNode(former_ ? firstMatch_ : 1);
    view_.setFocus(Qt::ShortcutFocusReason);
}

TreePane::TreePane(QWidget* parent)
    : QWidget(parent),
      icons_(palette()),
      model_(new TreeModel([this](const QString& key) { return icons_.icon(key); }, this)),
      tvXML_(new TreePaneView(*model_, this)),
      startPage_(new StartPage(this)),
      pages_(new QStackedWidget(this)),
      loadingBar_(makeLoadingBar()),
      name_(new QLabel(this)) {
    // A long name must not make the pane wide.
    name_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    name_->setTextFormat(Qt::PlainText);
    showName();

    tvXML_->setObjectName(QStringLiteral("tvXML"));
    tvXML_->setAccessibleName(tr("Fields of the database"));
    tvXML_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tvXML_, &QWidget::customContextMenuRequested, this, &TreePane::showContextMenu);
    connect(tvXML_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TreePane::selectionChanged);
    connect(tvXML_, &TreePaneView::dragFinished, this, &TreePane::dragFinished);
    makeInsertAction();

    auto* const rows = new QVBoxLayout(this);
    rows->addLayout(makeLoadRow());
    rows->addWidget(name_);
    rows->addWidget(loadingBar_);
    rows->addLayout(makeSearchRow());
    rows->addWidget(pages_, 1);
    pages_->addWidget(tvXML_);
    pages_->addWidget(startPage_);
    connect(startPage_, &StartPage::chosen, this, &TreePane::documentChosen);
    showPage();
    setTabOrder(searchBox_, tvXML_);

    loadingShown_.setSingleShot(true);
    connect(&loadingShown_, &QTimer::timeout, loadingBar_, &QWidget::show);
}

QLayout* TreePane::makeLoadRow() {
    auto* const load = new QPushButton(tr("&Load XML…"), this);
    load->setObjectName(QStringLiteral("cmdLoadXML"));
    connect(load, &QPushButton::clicked, this, &TreePane::loadRequested);
    auto* const database = new QPushButton(tr("Open &Database…"), this);
    database->setObjectName(QStringLiteral("cmdOpenDatabase"));
    connect(database, &QPushButton::clicked, this, &TreePane::databaseRequested);
    auto* const row = new QHBoxLayout;
    row->addWidget(load);
    row->addWidget(database);
    return row;
}

QWidget* TreePane::makeLoadingBar() {
    auto* const bar = new QWidget(this);
    auto* const busy = new QProgressBar(bar);
    busy->setRange(0, 0);
    busy->setAccessibleName(tr("Loading"));
    auto* const cancel = new QPushButton(tr("Ca&ncel"), bar);
    connect(cancel, &QPushButton::clicked, this, &TreePane::cancelRequested);
    auto* const row = new QHBoxLayout(bar);
    row->setContentsMargins({});
    row->addWidget(busy, 1);
    row->addWidget(cancel);
    bar->hide();
    return bar;
}

QLayout* TreePane::makeSearchRow() {
    searchBox_ = new QLineEdit(this);
    searchBox_->setObjectName(QStringLiteral("search"));
    searchBox_->setClearButtonEnabled(true);
    auto* const label = new QLabel(tr("&Search:"), this);
    label->setBuddy(searchBox_);
    auto* const result = new QLabel(this);
    result->setAlignment(Qt::AlignTrailing);
    search_ = new TreePaneSearch(*searchBox_, *result, *tvXML_, *model_);

    auto* const row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(searchBox_, 1);
    auto* const rows = new QVBoxLayout;
    rows->addLayout(row);
    rows->addWidget(result);
    return rows;
}

void TreePane::makeInsertAction() {
    insert_ = new QAction(tr("&Insert at the caret"), this);
    insert_->setShortcut(QKeySequence(Qt::Key_Insert));
    insert_->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    insert_->setShortcutVisibleInContextMenu(true);
    addAction(insert_);
    connect(insert_, &QAction::triggered, this, [this] {
        if (canInsert()) Q_EMIT insertRequested();
    });
}

void TreePane::show(std::shared_ptr<LoadedStructure> structure) {
    structure_ = std::move(structure);
    showName();
    showPage();
    // The tree is kept by its structure.
    const auto tree = structure_ ? std::shared_ptr<TreeView>(structure_, &structure_->tree) : nullptr;
    model_->setTree(tree);
    search_->setTree(tree);
    if (structure_ && structure_->firstObject > 0) {
        tvXML_->expand(model_->indexOf(structure_->firstObject));
        tvXML_->scrollToPosition(0);
    }
}

/// Shows the name of the structure document; its tip is the whole path.
void TreePane::showName() {
    const QString path = structure_ ? QString::fromStdString(structure_->path) : QString();
    name_->setText(QFileInfo(path).fileName());
    name_->setToolTip(path);
    name_->setVisible(!path.isEmpty());
}

/// Shows the tree, or what is offered while there is none.
void TreePane::showPage() {
    const bool hasTree = structure_ != nullptr || isLoading_;
    pages_->setCurrentWidget(hasTree ? static_cast<QWidget*>(tvXML_) : startPage_);
}

void TreePane::setPlaced(std::unordered_set<int> nodes) {
    model_->setPlaced(std::move(nodes));
    // Rows below others have changed, too.
    tvXML_->viewport()->update();
}

void TreePane::offer(const QStringList& recent, const QString& sample) {
    startPage_->offer(recent, sample);
}

void TreePane::clear() {
    show(nullptr);
}

void TreePane::setLoading(bool loading) {
    isLoading_ = loading;
    showPage();
    if (loading) {
        loadingShown_.start(kLoadingShownAfter);
    } else {
        loadingShown_.stop();
        loadingBar_->hide();
    }
}

const TreeNode* TreePane::selectedNode() const {
    return tvXML_->selectedNode();
}

QWidget& TreePane::tvXML() {
    return *tvXML_;
}

QWidget& TreePane::searchBox() {
    return *searchBox_;
}

bool TreePane::canInsert() const {
    const TreeNode* const node = selectedNode();
    return node != nullptr && isDraggable(*node);
}

void TreePane::showContextMenu(const QPoint& place) {
    if (selectedNode() == nullptr) return;
    QMenu menu(this);
    menu.addAction(insert_);
    // When a key is pressed, check again whether it has an effect.
    insert_->setEnabled(canInsert());
    menu.exec(tvXML_->viewport()->mapToGlobal(place));
    insert_->setEnabled(true);
}

void TreePane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    icons_.setPalette(palette());
    tvXML_->viewport()->update();
}

}  // namespace mergeloom
