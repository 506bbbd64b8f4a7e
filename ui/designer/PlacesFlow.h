#pragma once

#include "office/model/DocumentHost.h"
#include "ui/designer/PlaceOrigins.h"
#include "ui/designer/PlacesPane.h"

#include <QObject>
#include <QStringList>
#include <memory>

namespace mergeloom {

class DesignerActions;
class DesignerSession;
class HostPane;
struct LoadedStructure;
class TreePane;

/// The places of the document in the window: lists them with the nodes that they come from, marks these in
/// the tree, and names the places under the mouse.
class PlacesFlow final : public QObject {
    Q_OBJECT

  public:
    /// The objects that must outlive it.
    struct Parts {
        DesignerSession& session;
        DesignerActions& actions;
        HostPane& document;
        PlacesPane& list;
        TreePane& tree;
        QWidget& side;  ///< the widget that holds the list and the tree
    };

    explicit PlacesFlow(const Parts& parts);

    /// Notes that the node was dropped, and lists the places.
    void noteDrop(const TreeNode& node);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void show(const QStringList& names);
    void findAtMouse(HostPoint point);
    void showAtMouse(const QStringList& names);
    void showNewDocument();
    void showState();
    [[nodiscard]] PlaceEntry entryOf(const QString& name) const;

    Parts parts_;
    PlaceOrigins origins_;
    QStringList names_;  ///< those that are shown
    std::shared_ptr<LoadedStructure> structure_;
    bool isUpToDate_ = false;  ///< false after a drop and for a new document
};

}  // namespace mergeloom
