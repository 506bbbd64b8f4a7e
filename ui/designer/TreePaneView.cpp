#include "ui/designer/TreePaneView.h"

#include "ui/designer/TreeModel.h"
#include "ui/designer/mTVHook.h"

#include <QDrag>
#include <QFontMetrics>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace mergeloom {

namespace {

/// A number of nodes beyond the lines of any window.
constexpr std::size_t kExpandedAtOnce = 500;
/// The number of nodes per step: each step lays the whole tree out anew, so there must not be many.
constexpr std::size_t kExpandedPerStep = 20000;

// The measures of the dragged picture, in the height of its line of text.
constexpr int kPictureWidth = 20;
constexpr int kPictureDistance = 1;

}  // namespace

TreePaneView::TreePaneView(TreeModel& model, QWidget* parent) : QTreeView(parent), model_(model) {
    setModel(&model);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(SingleSelection);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    // Only nodes in view are measured; measuring all of them would take long.
    header()->setResizeContentsPrecision(0);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &TreePaneView::fitColumn);
    connect(&expanding_, &QTimer::timeout, this, [this] { expandNext(kExpandedPerStep); });
}

const TreeNode* TreePaneView::selectedNode() const {
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? nullptr : model_.node(selected.front());
}

void TreePaneView::selectNode(int node) {
    select(node);
    scrollTo(model_.indexOf(node));
}

void TreePaneView::select(int node) {
    const QModelIndex index = model_.indexOf(node);
    if (!index.isValid()) return;
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    setAutoScroll(true);
}

std::vector<int> TreePaneView::expandedNodes() const {
    std::vector<int> nodes;
    addExpanded({}, nodes);
    nodes.insert(nodes.end(), toExpand_.begin() + static_cast<std::ptrdiff_t>(nextToExpand_),
                 toExpand_.end());
    return nodes;
}

void TreePaneView::addExpanded(const QModelIndex& parent, std::vector<int>& nodes) const {
    for (int row = 0; row < model_.rowCount(parent); ++row) {
        const QModelIndex child = model_.index(row, 0, parent);
        if (!isExpanded(child)) continue;
        nodes.push_back(model_.node(child)->Index());
        addExpanded(child, nodes);
    }
}

int TreePaneView::scrollPosition() const {
    return verticalScrollBar()->value();
}

void TreePaneView::scrollToPosition(int position) {
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(position);
}

void TreePaneView::showRows(std::shared_ptr<const TreeModelRows> rows, std::vector<int> expanded) {
    const TreeNode* const selected = selectedNode();
    model_.setRows(std::move(rows));
    toExpand_ = std::move(expanded);
    nextToExpand_ = 0;
    expandNext(kExpandedAtOnce);
    if (selected != nullptr) select(selected->Index());
    verticalScrollBar()->setValue(0);
}

// While a layout is pending, expanding a node costs next to nothing. Otherwise each one moves all rows below.
void TreePaneView::expandNext(std::size_t most) {
    scheduleDelayedItemsLayout();
    const std::size_t end = std::min(toExpand_.size(), nextToExpand_ + most);
    for (; nextToExpand_ < end; ++nextToExpand_)
        expand(model_.indexOf(toExpand_[nextToExpand_]));
    nextToExpand_ < toExpand_.size() ? expanding_.start() : expanding_.stop();
}

void TreePaneView::startDrag(Qt::DropActions supportedActions) {
    HookTreeView(*this);
    const QModelIndex dragged = currentIndex();
    if (QMimeData* const carried = model_.mimeData({dragged})) {
        auto* const drag = new QDrag(this);
        drag->setMimeData(carried);
        drag->setPixmap(dragPicture(dragged.data().toString()));
        // Beside the pointer, so that the document under it stays visible.
        const int distance = kPictureDistance * fontMetrics().height();
        drag->setHotSpot({-distance, -distance});
        // The office takes the focus while the mouse is over it; Escape has to end the drag all the same.
        grabKeyboard();
        drag->exec(supportedActions);
        releaseKeyboard();
    }
    Q_EMIT dragFinished();
}

QPixmap TreePaneView::dragPicture(const QString& text) const {
    const QFontMetrics metrics = fontMetrics();
    const int space = metrics.height() / 4;
    const QString shown = metrics.elidedText(text, Qt::ElideRight, kPictureWidth * metrics.height());
    const QSize size(metrics.horizontalAdvance(shown) + 4 * space, metrics.height() + 2 * space);
    QPixmap picture(size * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(palette().color(QPalette::ToolTipBase));
    QPainter painter(&picture);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawRect(QRect(QPoint(), size).adjusted(0, 0, -1, -1));
    painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, shown);
    return picture;
}

QItemSelectionModel::SelectionFlags TreePaneView::selectionCommand(const QModelIndex& index,
                                                                   const QEvent* event) const {
    // A drag takes the node under the mouse, whatever keys are pressed.
    if (event != nullptr && event->type() == QEvent::MouseButtonPress && index.isValid()) {
        return QItemSelectionModel::ClearAndSelect;
    }
    return QTreeView::selectionCommand(index, event);
}

void TreePaneView::updateGeometries() {
    QTreeView::updateGeometries();
    fitColumn();
}

/// Makes the column as wide as the view and as the nodes that are in it.
void TreePaneView::fitColumn() {
    const int width = std::max(viewport()->width(), sizeHintForColumn(0));
    if (header()->sectionSize(0) != width) header()->resizeSection(0, width);
}

bool TreePaneView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QModelIndex index = indexAt(help.pos());
    const QRect shown = visualRect(index) & viewport()->rect();
    const bool isCut = index.isValid() && visualRect(index).width() > shown.width();
    QToolTip::showText(help.globalPos(), isCut ? index.data().toString() : QString(), viewport(), shown);
    return true;
}

}  // namespace mergeloom
