#pragma once

#include "base/DiskFileStore.h"
#include "ui/designer/DatabaseFlow.h"
#include "ui/designer/DesignerSession.h"
#include "ui/designer/DialogHelp.h"
#include "ui/designer/DropFlow.h"
#include "ui/designer/PlacesFlow.h"
#include "ui/designer/PlacesPane.h"
#include "ui/designer/RecentFiles.h"
#include "ui/designer/StatusSentences.h"
#include "ui/designer/StructureLoad.h"
#include "ui/designer/TreePane.h"
#include "ui/designer/WindowKeyboard.h"
#include "ui/designer/WindowSettings.h"
#include "ui/designer/mTVHook.h"
#include "ui/dialogs/ErrorDialog.h"
#include "ui/dialogs/MessageBoxes.h"
#include "ui/dialogs/QtFileDialog.h"
#include "ui/dialogs/QtPasswordDialog.h"
#include "ui/dialogs/frmFields.h"
#include "ui/help/HelpWindows.h"
#include "ui/help/clsHtmlHelp.h"
#include "ui/help/clsHtmlHelpForForm.h"
#include "ui/services/DiagnosticsLog.h"

#include <QMainWindow>
#include <optional>

class QLabel;
class QMenuBar;
class QPushButton;
class QSplitter;
namespace mergeloom {

/// The tree of the window's left side.
class PaneDropTree final : public DropTree {
  public:
    explicit PaneDropTree(TreePane& pane) : pane_(pane) {}

    /// A busy office may have taken the keyboard between the click and the drag, and then the tree has none
    /// to lose.
    bool hasLostFocus() override { return gTreeLostFocus || !pane_.tvXML().hasFocus(); }
    const TreeNode* selectedNode() override { return pane_.selectedNode(); }
    std::shared_ptr<LoadedStructure> structure() override { return pane_.structure(); }
    void unhook() override { UnhookTreeView(pane_.tvXML()); }

  private:
    TreePane& pane_;
};

class BusyBar;
class DesignerActions;
class HostArea;

/// The designer's window: the structure's tree on the left, the template in its office on the right.
class frmMain final : public QMainWindow {
    Q_OBJECT

  public:
    explicit frmMain(DocumentKind kind);

    /// Loads the structure document of the command line and starts the office; returns at once. The window is
    /// shown before.
    void start();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void layOut();
    void layOutLeftSide();
    void connectActions();
    void connectStructure();
    void connectOffice();
    void connectKeyboard();
    void answerKey(HostKey key);
    void startOffice();
    void showState();
    void endDrag();
    void reportDrop(bool isDropped);
    void showNextStep();
    void connectPreview();
    void showPreview(bool isShown);
    [[nodiscard]] StructureState structureState() const;
    void showAbout();
    void connectRecentFiles();
    void showTitle();
    [[nodiscard]] WindowHandle handle() const { return winId(); }

    DiskFileStore files_;
    MessageBoxes messages_;
    ErrorDialog errors_;
    QtFileDialog fileDialog_;
    QtPasswordDialog passwordDialog_;
    frmFields fieldDialog_;
    DiagnosticsLog log_;
    WindowSettings windowSettings_;
    RecentFiles templates_;
    RecentFiles structures_;

    // The toolkit's parents own these.
    QSplitter* splitter_;
    QMenuBar* menus_;
    DesignerActions* actions_;
    QSplitter* leftSide_;
    TreePane* tree_;
    PlacesPane* places_;
    HostArea* area_;
    QLabel* status_;
    BusyBar* busy_;
    QPushButton* cmdHelp_;
    QString caption_;
    bool hasChanges_ = false;

    PaneDropTree dropTree_;
    StructureLoad structureLoad_;
    DatabaseFlow databases_;
    HelpWindows helpWindows_;
    clsHtmlHelp help_;
    clsHtmlHelpForForm formHelp_;
    DialogHelp dialogHelp_;
    DesignerSession session_;
    PlacesFlow placesFlow_;
    std::optional<WindowKeyboard> keyboard_;
};

}  // namespace mergeloom
