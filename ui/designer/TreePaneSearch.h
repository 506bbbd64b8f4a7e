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

/// The search box over the tree: narrows the tree to what is searched while it is typed.
class TreePaneSearch : public QObject {
    Q_OBJECT
  public:
    /// The box, the line that tells how much was found, and the tree with its model outlive this object.
    TreePaneSearch(QLineEdit& box, QLabel& result, TreePaneView& view, TreeModel& model);

    /// Another tree is shown from now on, or none, and nothing is searched any more.
    void setTree(std::shared_ptr<TreeView> tree);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// How the tree looked before the search.
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
