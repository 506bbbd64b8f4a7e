#pragma once

#include "ui/designer/LoadedStructure.h"
#include "ui/designer/TreeFilter.h"
#include "ui/designer/TreeIcons.h"

#include <QObject>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

class QAction;
class QLabel;
class QLayout;
class QLineEdit;
class QStackedWidget;

namespace mergeloom {

class StartPage;
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
    struct TreeState {
        std::vector<int> expanded;
        int selected = 0;
        int scrollPosition = 0;
    };

    void search();
    void showMatches(TreeFilterMatches& matches);
    void showAll();
    void enterTree();
    [[nodiscard]] TreeState treeState() const;

    QLineEdit& box_;
    QLabel& result_;
    TreePaneView& view_;
    TreeModel& model_;
    TreeFilter filter_;
    std::optional<TreeState> former_;
    int firstMatch_ = 0;
};

/// The left pane: the buttons that load, the search box and the tree of the structure document.
class TreePane : public QWidget {
    Q_OBJECT
  public:
    explicit TreePane(QWidget* parent = nullptr);

    using QWidget::show;
    /// Shows a structure with its first object expanded; the search box is emptied.
    void show(std::shared_ptr<LoadedStructure> structure);
    /// Shows nothing.
    void clear();
    /// Shows, while a structure is loading, a bar and a button that cancels the load.
    void setLoading(bool loading);

    /// Marks the nodes that have places in the document, by their Index.
    void setPlaced(std::unordered_set<int> nodes);
    /// Sets the documents that are offered while nothing is shown.
    void offer(const QStringList& recent, const QString& sample);

    /// Returns the node that a drop inserts, or none.
    [[nodiscard]] const TreeNode* selectedNode() const;
    /// Returns the structure that is shown; none when the pane is clear.
    [[nodiscard]] const std::shared_ptr<LoadedStructure>& structure() const { return structure_; }
    /// Returns the tree's view, which is hooked (mTVHook.h) from the start of each drag on.
    [[nodiscard]] QWidget& tvXML();
    [[nodiscard]] QWidget& searchBox();

  Q_SIGNALS:
    /// Emitted when the load button was pressed.
    void loadRequested();
    /// Emitted when the button that opens databases was pressed.
    void databaseRequested();
    /// Emitted when a document that was offered is to be loaded.
    void documentChosen(const QString& path);
    /// Emitted when another node was selected.
    void selectionChanged();
    /// Emitted when the button that cancels a load was pressed.
    void cancelRequested();
    /// Emitted when the selected node, which may be inserted, is to be inserted at the document's caret.
    void insertRequested();
    /// Emitted when a drag of the selected node is over, wherever it ended, or was refused. The tree is
    /// hooked; the receiver has to unhook it.
    void dragFinished();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void showName();
    void showPage();
    QLayout* makeLoadRow();
    QWidget* makeLoadingBar();
    QLayout* makeSearchRow();
    void makeInsertAction();
    void showContextMenu(const QPoint& place);
    [[nodiscard]] bool canInsert() const;

    std::shared_ptr<LoadedStructure> structure_;
    TreeIcons icons_;
    TreeModel* model_;
    TreePaneView* tvXML_;
    StartPage* startPage_;
    QStackedWidget* pages_;
    bool isLoading_ = false;
    QWidget* loadingBar_;
    QLabel* name_;
    QLineEdit* searchBox_ = nullptr;
    TreePaneSearch* search_ = nullptr;
    QAction* insert_ = nullptr;
    QTimer loadingShown_;
};

}  // namespace mergeloom
