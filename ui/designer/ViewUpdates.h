#pragma once

#include "office/model/HostLook.h"
#include "ui/designer/HostedOffice.h"
#include "ui/designer/OfficeWorker.h"

#include <QObject>
#include <QTimer>
#include <functional>

namespace mergeloom {

/// Updates the parts of the view that are not the document: the marks of places, and the colors of the
/// desktop. Belongs to the windows' thread and does not wait.
class ViewUpdates final : public QObject {
    Q_OBJECT

  public:
    /// The function returns true if the office shows the document; resume() has to be called when it begins
    /// to. The arguments must outlive this object.
    ViewUpdates(OfficeWorker& worker, HostedOffice& office, std::function<bool()> showsDocument);

    /// Shows or hides the marks of places.
    void setShowsPlaces(bool shown);
    /// Moves the marks of places to the present places as soon as the office is free.
    void updateMarks();
    /// Gives the office another look, as soon as it is free and shows no dialog.
    void setLook(const HostLook& look);
    /// Makes the updates that were requested while another document was shown.
    void resume();
    /// Removes the pending updates, since the office has ended.
    void cancel();

  private:
    void updateMarksNow();
    void setLookNow();
    void startAfterCommand(QTimer& timer);

    OfficeWorker& worker_;
    HostedOffice& office_;
    const std::function<bool()> showsDocument_;
    QTimer marksTimer_;
    bool isUpdatingMarks_ = false;
    bool haveMarksMoved_ = false;  ///< since the present update began
    QTimer lookTimer_;
    bool isLookPending_ = false;
    HostLook look_;
};

}  // namespace mergeloom
