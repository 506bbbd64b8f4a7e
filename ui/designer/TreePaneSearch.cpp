#include "ui/designer/TreePaneSearch.h"

#include "ui/designer/TreeModel.h"
#include "ui/designer/TreePaneView.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <utility>

namespace mergeloom {

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
        if (!former_) former_ = look();
        filter_.find(words);
    }
}

TreePaneSearch::Look TreePaneSearch::look() const {
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
    const Look look = *std::exchange(former_, std::nullopt);
    result_.hide();
    view_.showRows(model_.allRows(), look.expanded);
    view_.clearSelection();
    view_.selectNode(look.selected);
    view_.scrollToPosition(look.scrollPosition);
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

}  // namespace mergeloom
