#pragma once

#include "ui/designer/LoadedStructure.h"

#include <memory>

#include <QWidget>

class QLineEdit;
class QProgressBar;
class QPushButton;

namespace mergeloom {

class TreeFilter;
class TreeModel;
class TreePaneView;

/// The left pane: the load button, the search box and the tree of the structure document.
class TreePane : public QWidget {
    Q_OBJECT
  public:
    explicit TreePane(QWidget* parent = nullptr);
    ~TreePane() override;

    using QWidget::show;
    /// Shows a structure from its first object on, which is expanded; the search box is emptied.
    void show(std::shared_ptr<LoadedStructure> structure);
    /// Shows nothing.
    void clear();
    /// While a structure is loading, the pane shows that and a button that cancels it.
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
    /// The selected node is to be inserted at the document's caret.
    void insertRequested();
    /// A drag of the selected node is over, wherever it ended, or was refused. The tree is hooked; whoever
    /// receives this unhooks it.
    void dragFinished();

  private:
    std::shared_ptr<LoadedStructure> structure_;
    QPushButton* cmdLoadXML_;
    QLineEdit* search_;
    TreePaneView* view_;
};

}  // namespace mergeloom
