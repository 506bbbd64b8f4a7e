#pragma once

#include "base/FileStore.h"
#include "ui/designer/DocumentFocus.h"
#include "ui/designer/DropFlow.h"
#include "ui/designer/HostedOffice.h"
#include "ui/designer/OfficeWorker.h"
#include "ui/designer/PreviewFlow.h"
#include "ui/designer/TemplateFiles.h"
#include "ui/designer/TemplateLifecycle.h"
#include "ui/designer/ViewUpdates.h"

#include <QObject>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>

namespace mergeloom {

/// The states of the office in the window.
enum class OfficeState {
    Starting,
    Opening,  ///< it runs, and the first template is being opened
    Running,
    Stopped
};

/// The office in the window and all work with it, from the start of the program to its end. Belongs to the
/// windows' thread and passes all work to the office's own.
class DesignerSession final : public QObject, private LifecycleView {
    Q_OBJECT

  public:
    using HostStarter = std::function<std::unique_ptr<DocumentHost>(
        const HostWindow& window, DocumentKind kind, HostListener& listener)>;
    using Diagnostics = std::function<void(const std::string& line)>;
    /// The objects that have to outlive it, and the function that starts an office.
    struct Ports {
        HostStarter startHost;
        Diagnostics log;
        Messages& messages;
        ErrorHandler& errors;
        FileDialog& fileDialog;
        PasswordDialog& passwordDialog;
        FieldDialog& fieldDialog;
        DropTree& tree;
        FileStore& files;
        /// The folder for the copies of unsaved documents, and the time between two of one document.
        std::string keptFolder;
        std::chrono::milliseconds keepInterval;
    };

    DesignerSession(DocumentKind kind, Ports ports);
    /// Ends the office.
    ~DesignerSession() override;

    [[nodiscard]] OfficeState state() const { return state_; }
    /// Returns why there is no document, in the state Stopped.
    [[nodiscard]] const QString& stopReason() const { return stopReason_; }
    /// Returns the office's build; empty while none runs. May be called by any thread.
    [[nodiscard]] std::string officeBuild() const;
    [[nodiscard]] OfficeWorker& worker() { return worker_; }
    [[nodiscard]] ViewUpdates& view() { return view_; }
    [[nodiscard]] DocumentFocus& focus() { return focus_; }
    [[nodiscard]] DropProgress& progress() { return progress_; }

    /// Starts the office, also anew: then the file that was saved last is opened. Does not wait.
    void start(const HostWindow& window);
    /// Stops the start of an office.
    void cancelStart();

    /// Executes the command; does nothing while no office runs or another command does.
    void execute(HostCommand command);
    /// Opens a template in place of the document, unless the user cancels.
    void openTemplate(const QString& path);
    void convertFields();
    /// Show and end the preview, and change its letter. Other commands end it first, and drops are refused.
    void startPreview();
    void endPreview();
    void goInPreview(PreviewStep step);
    /// Returns the records that the preview shows; none without one.
    [[nodiscard]] const std::optional<PreviewedRecords>& previewed() const { return previewFlow_.shown(); }
    bool drop(HostPoint point);
    bool insertAtCaret();
    /// Returns what became of the last drop.
    [[nodiscard]] const DropReport& dropReport() const { return dropFlow_.report(); }
    /// Starts the search for the places at a point and returns at once. Emits placesFoundAt at its end.
    /// Returns false, and does nothing, while the office is busy.
    bool findPlacesAt(HostPoint point);
    /// Starts the search for the places of the document, after a command that is in progress, and returns at
    /// once. Emits placesFound at its end. Does nothing while no document is shown.
    void findPlaces();
    /// Select, rename or remove a place. Show errors to the user.
    void goToPlace(const QString& name);
    void renamePlace(const QString& name, const QString& newName);
    void removePlace(const QString& name);
    void setFolders(const std::string& documents, const std::string& templates);

    /// Shows where a drag would be dropped. This and the members below do not wait.
    void showDropPlace(HostPoint point);
    void hideDropPlace();
    void resize(int width, int height);

    /// Prepares the closing of the window; returns false when it has to stay.
    bool unload();

  Q_SIGNALS:
    void stateChanged();
    void captionChanged(const QString& caption);
    /// Emitted when the document has its first change, or none any more.
    void changesShown(bool hasChanges);
    /// Emitted when the user opened a file, or saved in it.
    void fileUsed(const QString& path);
    /// Emitted with a sentence about what was done.
    void statusChanged(const QString& status);
    /// Emitted with the names of the document's places.
    void placesFound(const QStringList& names);
    /// Emitted when a preview began or ended, or shows another letter.
    void previewChanged();
    void placesFoundAt(const QStringList& names);
    /// Emitted when a command begins.
    void commandBegun();
    /// The office's own menu requested it.
    void closeRequested();
    /// Emitted when a key of the window was pressed in the document.
    void keyPressed(mergeloom::HostKey key);

  private:
    bool askForPlaces(const std::function<std::vector<std::string>(DocumentHost&)>& ask, bool& isAsking,
                      void (DesignerSession::*found)(const QStringList&));
    /// An attempt to start an office, which the user may cancel.
    struct Attempt {
        std::atomic<bool> isCancelled = false;
    };

    std::unique_ptr<TemplateOffice> makeTemplates();
    void showCaption(const std::string& caption) override;
    void showChanges(bool hasChanges) override;
    void noteFile(const std::string& path) override;
    void showStatus(const std::string& text) override;
    void setState(OfficeState state, const QString& stopReason = {});
    void startOffice(const HostWindow& window, const Attempt& attempt);
    void logOffice();
    void onStarted(const std::exception_ptr& error);
    void openFirst();
    void keepCopy();
    void onEnded();
    void answer(std::function<void()> call);
    void post(OfficeJobs::Job job);
    void workOnPlace(const std::function<void(DocumentHost&)>& work);
    bool beginCommand();
    bool refusesDrop();
    [[nodiscard]] bool isFree() const { return state_ == OfficeState::Running && !worker_.isWaitedFor(); }

    DocumentKind kind_;
    Ports ports_;
    HostEvents events_;
    HostedOffice office_;
    DiskTemplateFiles files_;
    KeptCopies copies_;
    std::unique_ptr<TemplateOffice> templates_;
    TemplateLifecycle lifecycle_;
    OfficeState state_ = OfficeState::Stopped;
    QString stopReason_;
    bool hasOpened_ = false;
    bool isToFindPlaces_ = false;                ///< as soon as no command runs
    std::atomic<bool> willShowChanges_ = false;  ///< by a job that has not begun
    bool isFindingPlaces_ = false;               ///< at present
    bool findsPlacesAgain_ = false;              ///< since the present search may miss the last change
    bool isFindingPlacesAt_ = false;
    std::shared_ptr<Attempt> attempt_;
    mutable std::mutex buildMutex_;
    std::string build_;
    DropProgress progress_;
    OfficeWorker worker_;
    DropFlow dropFlow_;
    PreviewFlow previewFlow_;
    ViewUpdates view_;
    DocumentFocus focus_;
    QTimer keepTimer_;
};

}  // namespace mergeloom
