#pragma once

#include "ui/designer/TreeFilter.h"

#include <QObject>
#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QLineEdit;

namespace mergeloom {

class TreeModel;
class TreePaneView;

/// The search box over the tree: narrows the tree to the matches while the user types.
class TreePaneSearch : public QObject {
    Q_OBJECT
  public:
    /// The box, the line that shows the number of matches, and the tree with its model have to outlive this
    /// object.
    TreePaneSearch(QLineEdit& box, QLabel& result, TreePaneView& view, TreeModel& model);

    /// Sets the tree that is shown from now on, or none, and ends the search.
    void setTree(std::shared_ptr<TreeView> tree);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// The state of the tree before the search.
    struct Look {
        std::vector<int> expanded;
        int selected = 0;
        int scrollPosition = 0;
    };

    void search();
    void showMatches(TreeFilterMatches& matches);
    void showAll();
    void enterTree();
    [[nodiscard]] Look look() const;

    QLineEdit& box_;
    QLabel& result_;
    TreePaneView& view_;
    TreeModel& model_;
    TreeFilter filter_;
    std::optional<Look> former_;
    int firstMatch_ = 0;
};

}  // namespace mergeloom
