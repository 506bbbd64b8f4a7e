#include "ui/designer/DesignerSession.h"

#include "base/AutomationError.h"
#include "base/ErrorHandler.h"
#include "office/factory/OfficeFactory.h"
#include "ui/designer/ExcelTemplates.h"
#include "ui/designer/MainForm.h"
#include "ui/designer/WordTemplates.h"
#include "ui/services/DiagnosticsLog.h"

#include <QApplication>
#include <utility>

namespace mergeloom {

namespace {

QString sentenceOf(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& raised) {
        return QString::fromUtf8(raised.what());
    }
}

}  // namespace

DesignerSession::DesignerSession(DocumentKind kind, Ports ports)
    : kind_(kind),
      ports_(std::move(ports)),
      office_([this](const HostWindow& window, DocumentKind shown) {
          return ports_.startHost(window, shown, events_);
      }),
      files_(ports_.files),
      copies_(ports_.files, ports_.keptFolder),
      templates_(makeTemplates()),
      lifecycle_({.access = office_,
                  .office = *templates_,
                  .messages = ports_.messages,
                  .errors = ports_.errors,
                  .dialog = ports_.fileDialog,
                  .passwords = ports_.passwordDialog,
                  .files = files_,
                  .view = *this,
                  .copies = copies_}),
      dropFlow_({.jobs = worker_,
                 .access = office_,
                 .tree = ports_.tree,
                 .errors = ports_.errors,
                 .messages = ports_.messages,
                 .progress = progress_,
                 .fieldDialog = ports_.fieldDialog,
                 .runPendingEvents = [] { QCoreApplication::processEvents(); }}),
      previewFlow_({.jobs = worker_,
                    .access = office_,
                    .files = ports_.files,
                    .errors = ports_.errors,
                    .messages = ports_.messages}),
      view_(worker_, office_, [this] { return state_ == OfficeState::Running && !previewed(); }),
      focus_(worker_, office_, [this] { return isFree(); }) {
    connect(&events_, &HostEvents::commandGiven, this,
            [this](HostCommand command) { answer([this, command] { execute(command); }); });
    connect(&events_, &HostEvents::keyGiven, this,
            [this](HostKey key) { answer([this, key] { Q_EMIT keyPressed(key); }); });
    connect(&events_, &HostEvents::ended, this, &DesignerSession::onEnded);
    connect(&events_, &HostEvents::changesBegunOrEnded, this, [this] {
        if (state_ != OfficeState::Running || willShowChanges_.exchange(true)) return;
        post([this] {
            willShowChanges_ = false;
            lifecycle_.ShowChanges();
        });
    });
    connect(&events_, &HostEvents::marksMoved, &view_, &ViewUpdates::updateMarks);
    connect(this, &DesignerSession::previewChanged, &view_, &ViewUpdates::resume);
    connect(this, &DesignerSession::placesFound, this, [this] {
        if (std::exchange(findsPlacesAgain_, false)) findPlaces();
    });
    connect(&keepTimer_, &QTimer::timeout, this, &DesignerSession::keepCopy);
    keepTimer_.start(ports_.keepInterval);
}

std::unique_ptr<TemplateOffice> DesignerSession::makeTemplates() {
    if (kind_ == DocumentKind::Excel) return std::make_unique<ExcelTemplates>(office_);
    return std::make_unique<WordTemplates>(office_, ports_.messages, ports_.errors, files_, [this] {
        return makeWordApplication(OfficeKind::Embedded, ports_.files);
    });
}

DesignerSession::~DesignerSession() {
    if (attempt_) attempt_->isCancelled = true;
    worker_.run([this] {
        office_.end();
        lifecycle_.Terminate();
    });
}

std::string DesignerSession::officeBuild() const {
    const std::scoped_lock lock(buildMutex_);
    return build_;
}

void DesignerSession::start(const HostWindow& window) {
    if (state_ != OfficeState::Stopped) return;
    setState(OfficeState::Starting);
    const auto attempt = std::make_shared<Attempt>();
    attempt_ = attempt;
    worker_.post([this, window, attempt] { startOffice(window, *attempt); },
                 [this, attempt](const std::exception_ptr& error) {
                     if (!attempt->isCancelled) onStarted(error);
                 });
}

void DesignerSession::startOffice(const HostWindow& window, const Attempt& attempt) {
    if (attempt.isCancelled) return;
    office_.start(window, kind_);
    if (attempt.isCancelled) {
        office_.end();
        return;
    }
    logOffice();
}

void DesignerSession::logOffice() {
    const std::string build = office_.host().build();
    ports_.log(sizeLineOf("mergeloom_libreoffice.so"));
    ports_.log("LibreOffice Build: " + build);
    const std::scoped_lock lock(buildMutex_);
    build_ = build;
}

void DesignerSession::cancelStart() {
    if (state_ != OfficeState::Starting) return;
    attempt_->isCancelled = true;
    setState(OfficeState::Stopped, tr("The office was not started."));
}

void DesignerSession::onStarted(const std::exception_ptr& error) {
    if (state_ != OfficeState::Starting) return;
    if (error) {
        setState(OfficeState::Stopped, sentenceOf(error));
        return;
    }
    setState(OfficeState::Opening);
    openFirst();
}

void DesignerSession::openFirst() {
    const bool again = std::exchange(hasOpened_, true);
    const auto isHosted = std::make_shared<bool>(false);
    worker_.post([this, again, isHosted] { *isHosted = again ? lifecycle_.Restart() : lifecycle_.Start(); },
                 [this, isHosted](const std::exception_ptr& /*none leaves it*/) {
                     if (state_ != OfficeState::Opening) return;
                     if (*isHosted) {
                         setState(OfficeState::Running);
                         return;
                     }
                     post([this] { office_.end(); });
                     setState(OfficeState::Stopped, tr("No document is shown."));
                 });
}

/// Skips this copy while a command or a question is in progress.
void DesignerSession::keepCopy() {
    if (isFree()) post([this] { lifecycle_.KeepCopy(); });
}

void DesignerSession::onEnded() {
    if (state_ == OfficeState::Stopped) return;
    if (attempt_) attempt_->isCancelled = true;
    post([this] { office_.end(); });
    previewFlow_.forget();
    Q_EMIT previewChanged();
    setState(OfficeState::Stopped,
             tr("The office has ended unexpectedly. Start it again: a copy that was kept of unsaved "
                "work is offered then."));
}

void DesignerSession::setState(OfficeState state, const QString& stopReason) {
    state_ = state;
    stopReason_ = stopReason;
    if (state == OfficeState::Stopped) view_.cancel();
    if (state == OfficeState::Running) view_.resume();
    Q_EMIT stateChanged();
}

/// Answers a command or a key of the document. One that was given while a command runs follows it, as those
/// of the window do; one that was given below a question is ignored.
void DesignerSession::answer(std::function<void()> call) {
    if (QApplication::activeModalWidget() == nullptr) worker_.callWhenFree(std::move(call));
}

void DesignerSession::execute(HostCommand command) {
    if (command == HostCommand::Close && previewed()) return endPreview();
    if (command == HostCommand::Close && isFree()) {
        Q_EMIT closeRequested();
        return;
    }
    if (beginCommand()) worker_.run([this, command] { lifecycle_.Execute(command); });
}

/// Ends the preview, since a command works on the template; returns false when no command may begin.
bool DesignerSession::beginCommand() {
    if (!isFree()) return false;
    endPreview();
    Q_EMIT commandBegun();
    return true;
}

void DesignerSession::startPreview() {
    const std::shared_ptr<LoadedStructure> structure = ports_.tree.structure();
    if (!beginCommand() || structure == nullptr) return;
    previewFlow_.start(structure);
    Q_EMIT previewChanged();
}

void DesignerSession::endPreview() {
    if (!isFree() || !previewed()) return;
    previewFlow_.end();
    Q_EMIT previewChanged();
}

void DesignerSession::goInPreview(PreviewStep step) {
    if (!isFree() || !previewed()) return;
    previewFlow_.go(step);
    Q_EMIT previewChanged();
}

void DesignerSession::openTemplate(const QString& path) {
    if (beginCommand()) worker_.run([this, file = path.toStdString()] { lifecycle_.OpenInstead(file); });
}

void DesignerSession::convertFields() {
    if (!beginCommand()) return;
    trap(ports_.errors, kMainForm, "ConvertMergeFields", [this] {
        worker_.run(
            [this] { convertHostedFields(office_.host(), ports_.files, ports_.errors, ports_.messages); });
    });
}

/// The preview is read-only, and the template is not seen.
bool DesignerSession::refusesDrop() {
    if (!isFree() || !previewed()) return false;
    dropFlow_.refuse(DropRefusal::Preview);
    return true;
}

bool DesignerSession::drop(HostPoint point) {
    if (refusesDrop()) return false;
    if (isFree()) return dropFlow_.drop(point);
    ports_.tree.unhook();
    return false;
}

bool DesignerSession::insertAtCaret() {
    return !refusesDrop() && isFree() && dropFlow_.insertAtCaret();
}

/// A search that is in progress may miss what the last command changed.
void DesignerSession::findPlaces() {
    findsPlacesAgain_ = isFindingPlaces_;
    if (isFindingPlaces_ || std::exchange(isToFindPlaces_, true)) return;
    worker_.callWhenFree([this] {
        isToFindPlaces_ = false;
        const auto ask = [](DocumentHost& host) { return host.placeNames(); };
        (void)askForPlaces(ask, isFindingPlaces_, &DesignerSession::placesFound);
    });
}

bool DesignerSession::findPlacesAt(HostPoint point) {
    const auto ask = [point](DocumentHost& host) { return host.placesAt(point); };
    return askForPlaces(ask, isFindingPlacesAt_, &DesignerSession::placesFoundAt);
}

/// Returns false, and does nothing, while the office is busy or the same search is running.
bool DesignerSession::askForPlaces(const std::function<std::vector<std::string>(DocumentHost&)>& ask,
                                   bool& isAsking, void (DesignerSession::*found)(const QStringList&)) {
    if (!isFree() || std::exchange(isAsking, true)) return false;
    const auto names = std::make_shared<QStringList>();
    worker_.post(
        [this, ask, names] {
            for (const std::string& name : ask(office_.host()))
                *names += QString::fromStdString(name);
        },
        [this, &isAsking, found, names](const std::exception_ptr& error) {
            isAsking = false;
            if (!error) Q_EMIT(this->*found)(*names);
        });
    return true;
}

void DesignerSession::goToPlace(const QString& name) {
    workOnPlace([place = name.toStdString()](DocumentHost& host) { host.showPlace(place); });
}

void DesignerSession::renamePlace(const QString& name, const QString& newName) {
    workOnPlace([&, place = name.toStdString(), other = newName.toStdString()](DocumentHost& host) {
        if (!refusesChanges(host, ports_.messages)) host.renamePlace(place, other);
    });
}

void DesignerSession::removePlace(const QString& name) {
    workOnPlace([&, place = name.toStdString()](DocumentHost& host) {
        if (!refusesChanges(host, ports_.messages)) host.removePlace(place);
    });
}

/// Shows an error that has a sentence for the user in a message box, and reports other errors.
void DesignerSession::workOnPlace(const std::function<void(DocumentHost&)>& work) {
    if (!beginCommand()) return;
    trap(ports_.errors, kMainForm, "WorkOnPlace", [&] {
        worker_.run([&] {
            try {
                work(office_.host());
            } catch (const AutomationError& error) {
                if (error.number() != kCommandFailed) throw;
                (void)ports_.messages.show(
                    {error.description(), MessageIcon::Exclamation, MessageButtons::Ok});
            }
        });
    });
    findPlaces();
}

void DesignerSession::setFolders(const std::string& documents, const std::string& templates) {
    post([this, documents, templates] {
        lifecycle_.SetDocumentsFolder(documents);
        lifecycle_.SetTemplatesFolder(templates);
    });
}

void DesignerSession::showDropPlace(HostPoint point) {
    if (!isFree() || previewed()) return;
    worker_.postNewest([this, point] {
        try {
            office_.host().showDropPlace(point);
        } catch (const AutomationError&) {
            // The text changed under the drag, which asks again; an office that has ended is found by the
            // drop.
        }
    });
}

void DesignerSession::hideDropPlace() {
    post([this] {
        if (office_.isRunning()) office_.host().hideDropPlace();
    });
}

void DesignerSession::resize(int width, int height) {
    post([this, width, height] {
        if (office_.isRunning()) office_.host().resize(width, height);
    });
}

/// Ignores the errors of the job: they come from an office that has ended, which is reported in another way.
void DesignerSession::post(OfficeJobs::Job job) {
    worker_.post(std::move(job), [](const std::exception_ptr& /*error*/) {});
}

bool DesignerSession::unload() {
    if (worker_.isWaitedFor()) return false;
    if (state_ == OfficeState::Starting || state_ == OfficeState::Stopped) {
        // There is nothing to save, so the office's thread need not be waited for.
        cancelStart();
        lifecycle_.Terminate();
        return true;
    }
    endPreview();
    bool mayClose = false;
    worker_.run([&] { mayClose = lifecycle_.Unload(); });
    return mayClose;
}

void DesignerSession::showCaption(const std::string& caption) {
    QMetaObject::invokeMethod(
        this, [this, text = QString::fromStdString(caption)] { Q_EMIT captionChanged(text); },
        Qt::QueuedConnection);
}

void DesignerSession::showChanges(bool hasChanges) {
    QMetaObject::invokeMethod(
        this, [this, hasChanges] { Q_EMIT changesShown(hasChanges); }, Qt::QueuedConnection);
}

void DesignerSession::noteFile(const std::string& path) {
    QMetaObject::invokeMethod(
        this, [this, file = QString::fromStdString(path)] { Q_EMIT fileUsed(file); }, Qt::QueuedConnection);
}

void DesignerSession::showStatus(const std::string& text) {
    QMetaObject::invokeMethod(
        this, [this, status = QString::fromStdString(text)] { Q_EMIT statusChanged(status); },
        Qt::QueuedConnection);
}

}  // namespace mergeloom
