#include "ui/designer/PlacesFlow.h"

#include "ui/designer/DesignerActions.h"
#include "ui/designer/DesignerSession.h"
#include "ui/designer/HostArea.h"
#include "ui/designer/LoadedStructure.h"
#include "ui/designer/StatusSentences.h"
#include "ui/designer/TreePane.h"

#include <QEvent>
#include <QToolTip>
#include <algorithm>
#include <memory>
#include <span>
#include <unordered_set>
#include <utility>
#include <vector>

namespace mergeloom {

PlacesFlow::PlacesFlow(const Parts& parts) : parts_(parts) {
    DesignerSession& session = parts_.session;
    connect(&parts_.list, &PlacesPane::goToRequested, &session, &DesignerSession::goToPlace);
    connect(&parts_.list, &PlacesPane::renameRequested, &session, &DesignerSession::renamePlace);
    connect(&parts_.list, &PlacesPane::removeRequested, &session, &DesignerSession::removePlace);
    connect(&parts_.actions, &DesignerActions::placesToggled, &session.view(), &ViewUpdates::setShowsPlaces);
    connect(&session, &DesignerSession::placesFound, this, &PlacesFlow::show);
    connect(&session, &DesignerSession::changesShown, &session, &DesignerSession::findPlaces);
    connect(&session, &DesignerSession::placesFoundAt, this, &PlacesFlow::showAtMouse);
    connect(&session, &DesignerSession::captionChanged, this, &PlacesFlow::showNewDocument);
    connect(&parts_.document, &HostPane::rested, this, &PlacesFlow::findAtMouse);
    connect(&parts_.document, &HostPane::restEnded, this, [] { QToolTip::hideText(); });
    connect(&session, &DesignerSession::stateChanged, this, &PlacesFlow::showState);
    // Also searches the places again when the mouse or the keyboard returns to the window after work in the
    // document.
    for (QWidget* const widget : {&parts_.side, &parts_.tree.tvXML(), &parts_.list.list()})
        widget->installEventFilter(this);
}

bool PlacesFlow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter || event->type() == QEvent::FocusIn) parts_.session.findPlaces();
    return QObject::eventFilter(watched, event);
}

/// Returns a place with its node. If the node is uncertain, the place has the picture that all possible nodes
/// share.
PlaceEntry PlacesFlow::entryOf(const QString& name) const {
    const std::string place = name.toStdString();
    if (const TreeNode* const node = origins_.nodeOf(place))
        return {.name = name, .source = sourceSentence(*node), .iconKey = iconKeyOf(*node)};
    const std::vector<const TreeNode*> nodes = origins_.candidates(place);
    const auto hasOtherIcon = [&](const TreeNode* node) {
        return iconKeyOf(*node) != iconKeyOf(*nodes.front());
    };
    if (nodes.empty() || std::ranges::any_of(nodes, hasOtherIcon)) return {.name = name};
    return {.name = name, .iconKey = iconKeyOf(*nodes.front())};
}

/// Lists the places with their nodes, and marks all nodes of their names in the tree.
void PlacesFlow::show(const QStringList& names) {
    const std::shared_ptr<LoadedStructure>& structure = parts_.tree.structure();
    if (std::exchange(isUpToDate_, true) && names == names_ && structure == structure_) return;
    names_ = names;
    structure_ = structure;
    std::vector<std::string> places;
    for (const QString& name : names)
        places.push_back(name.toStdString());
    origins_.setStructure(structure);
    origins_.setPlaces(places);
    std::unordered_set<int> placed;
    QList<PlaceEntry> entries;
    for (const QString& name : names) {
        entries.append(entryOf(name));
        if (!structure) continue;
        const std::span<const int> nodes = nodesOfPlace(structure->nodesByPlace, name.toStdString());
        placed.insert(nodes.begin(), nodes.end());
    }
    parts_.document.forgetRest();
    parts_.tree.setPlaced(std::move(placed));
    parts_.list.show(std::move(entries));
}

void PlacesFlow::findAtMouse(HostPoint point) {
    if (parts_.actions.showsPlaces() && !parts_.session.findPlacesAt(point)) parts_.document.forgetRest();
}

/// Shows the names of the places under the mouse and the nodes that they come from.
void PlacesFlow::showAtMouse(const QStringList& names) {
    if (!parts_.document.isResting() || names.isEmpty()) return;
    QStringList lines;
    for (const QString& name : names) {
        const QString source = entryOf(name).source;
        lines += source.isEmpty() ? name : name + QStringLiteral(": ") + source;
    }
    QToolTip::showText(QCursor::pos(), lines.join(u'\n'), &parts_.document);
}

/// Lists the places when the office shows its first document.
void PlacesFlow::showState() {
    if (parts_.session.state() == OfficeState::Running) parts_.session.findPlaces();
}

/// Hides the marks again, since the view of a new document shows them.
void PlacesFlow::showNewDocument() {
    origins_.noteNewDocument();
    isUpToDate_ = false;
    parts_.session.findPlaces();
    ViewUpdates& view = parts_.session.view();
    parts_.actions.showsPlaces() ? view.updateMarks() : view.setShowsPlaces(false);
}

void PlacesFlow::noteDrop(const TreeNode& node) {
    origins_.setStructure(parts_.tree.structure());
    origins_.noteDrop(node);
    isUpToDate_ = false;
    parts_.session.findPlaces();
}

}  // namespace mergeloom
