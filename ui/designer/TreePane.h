#pragma once

#include "ui/designer/LoadedStructure.h"
#include "ui/designer/TreeIcons.h"

#include <QTimer>
#include <QWidget>
#include <memory>

class QAction;
class QLayout;
class QLineEdit;

namespace mergeloom {

class TreeModel;
class TreePaneSearch;
class TreePaneView;

/// The left pane: the load button, the search box and the tree of the structure document.
class TreePane : public QWidget {
    Q_OBJECT
  public:
    explicit TreePane(QWidget* parent = nullptr);

    using QWidget::show;
    /// Shows a structure with its first object expanded; the search box is emptied.
    void show(std::shared_ptr<LoadedStructure> structure);
    /// Shows nothing.
    void clear();
    /// While a structure is loading, the pane tells so and offers a button that cancels it.
    void setLoading(bool loading);

    /// The node that a drop inserts, or none.
    [[nodiscard]] const TreeNode* selectedNode() const;
    /// What is shown; none when the pane is clear.
    [[nodiscard]] const std::shared_ptr<LoadedStructure>& structure() const { return structure_; }
    /// The tree's view, which is hooked (mTVHook.h) from the start of each drag on.
    [[nodiscard]] QWidget& tvXML();

  Q_SIGNALS:
    /// The load button was pressed.
    void loadRequested();
    /// The button that cancels a load was pressed.
    void cancelRequested();
    /// The selected node is to be inserted at the document's caret. It is one that may be.
    void insertRequested();
    /// A drag of the selected node is over, wherever it ended, or was refused. The tree is hooked; whoever
    /// receives this unhooks it.
    void dragFinished();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QWidget* makeLoadingBar();
    QLayout* makeSearchRow();
    void makeInsertAction();
    void showContextMenu(const QPoint& place);
    [[nodiscard]] bool canInsert() const;

    std::shared_ptr<LoadedStructure> structure_;
    TreeIcons icons_;
    TreeModel* model_;
    TreePaneView* tvXML_;
    QWidget* loadingBar_;
    QLineEdit* searchBox_ = nullptr;
    TreePaneSearch* search_ = nullptr;
    QAction* insert_ = nullptr;
    QTimer loadingShown_;
};

}  // namespace mergeloom
