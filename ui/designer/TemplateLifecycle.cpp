#include "ui/designer/TemplateLifecycle.h"

#include "app/MergeloomErrorCodes.h"
#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/ErrorHandler.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "ui/designer/MainForm.h"
#include "ui/designer/TemplateAccess.h"

#include <optional>
#include <utility>

namespace mergeloom {

namespace {

/// Returns the file that the command line opens at first; empty when it names none.
std::string firstFile() {
    const std::string file = commandLineFile(kTemplateSwitch);
    return file.empty() ? commandLineFile(kUseDocumentSwitch) : file;
}

/// Returns the file's name as the status line shows it.
std::string quoted(const std::string& path) {
    return "“" + fileNameOnly(path) + "”";
}

/// Returns the text of the status line after a save.
std::string savedSentence(model::OfficeDocument& document, const std::string& path) {
    const std::optional<model::KeptEntries> kept = document.keptEntries();
    if (!kept) return quoted(path) + " was saved.";
    return "Saved; " + std::to_string(kept->unchanged) + " of " + std::to_string(kept->all) +
           " parts unchanged";
}

std::string protectedSentence(const std::string& path) {
    return quoted(path) +
           " is protected against changes. It is open for reading only: save it under another name to change "
           "it.";
}

bool isFileOf(model::OfficeDocument& document, const std::string& path) {
    return equalsIgnoringCase(document.FullName(), path);
}

}  // namespace

bool TemplateLifecycle::Start() {
    bool isHosted = false;
    trapped("Form_Load", [&] { isHosted = createNew(); });
    const std::string file = firstFile();
    if (isHosted && !restoreKept(file) && !file.empty()) OpenTemplate(file);
    return isHosted;
}

bool TemplateLifecycle::Restart() {
    bool isHosted = false;
    if (restoreKept(templatePath_)) return true;
    trapped("Form_Load",
            [&] { isHosted = templatePath_.empty() ? createNew() : show(templatePath_, access_); });
    return isHosted;
}

bool TemplateLifecycle::restoreKept(const std::string& file) {
    bool isRestored = false;
    trapped("RestoreTemplate", [&] {
        const std::optional<KeptCopy> copy = keeping_.offer(file);
        if (!copy) return;
        isRestored = restore(*copy);
    });
    if (!isRestored) keeping_.leave();
    return isRestored;
}

/// Shows the copy as the unsaved document of its own file, or as a new one when the file is open elsewhere.
/// Returns false if the user does not enter the password of the copy, which is the password of the file.
bool TemplateLifecycle::restore(const KeptCopy& copy) {
    std::string path = copy.original;
    if (ports_.files.exists(path) && ports_.files.isLocked(path)) path.clear();
    auto lock = path.empty() ? nullptr : std::make_shared<DocumentLock>(path);
    const std::string& shown = copy.original.empty() ? copy.path : copy.original;
    if (!passwords_.open(copy.path, FileAccess::Copy, shown)) return false;
    ports_.office.document()->SetSaved(false);
    if (ports_.files.exists(copy.original)) ports_.office.document()->useOriginal(copy.original);
    templatePath_ = path;
    access_ = FileAccess::Edit;
    lock_ = std::move(lock);
    proposedName_ = path.empty() ? newName() : fileNameOnly(path);
    ports_.view.showCaption(path.empty() ? ports_.office.texts().newCaption : captionOf(path, access_));
    ports_.office.setUpView();
    ShowChanges();
    return true;
}

/// Returns the name that is proposed for a new template.
std::string TemplateLifecycle::newName() const {
    return std::string(ports_.office.texts().newCaption) + "." + ports_.office.defaultExtension();
}

/// Ignores the error of an office that has ended, which is reported elsewhere.
void TemplateLifecycle::ShowChanges() try {
    model::OfficeDocument* const document = documentOrNone();
    const bool hasChanges = document != nullptr && !document->Saved();
    ports_.view.showChanges(hasChanges);
    if (hasChanges && access_ != FileAccess::ReadOnly) document->prepareSave();
} catch (const AutomationError&) {
    ports_.view.showChanges(false);
}

void TemplateLifecycle::use(const std::string& path) {
    lastFolder_ = parentFolder(path);
    proposedName_ = fileNameOnly(path);
    ports_.view.noteFile(path);
}

void TemplateLifecycle::SetTemplatesFolder(const std::string& folder) {
    if (folder != templatesFolder_) lastFolder_.clear();
    templatesFolder_ = folder;
}

void TemplateLifecycle::KeepCopy() try {
    if (documentOrNone() != nullptr && access_ != FileAccess::ReadOnly) keeping_.keep(templatePath_);
} catch (const AutomationError& error) {
    // It is tried again with the next change; a message would stop the user's work each time.
    if (error.number() != kNotAvailable) ports_.view.showStatus(error.description());
}

bool TemplateLifecycle::createNew() {
    if (!ports_.office.createNew()) return false;
    adopt({}, FileAccess::Edit, {});
    passwords_.forget();
    proposedName_ = newName();
    ports_.view.showCaption(ports_.office.texts().newCaption);
    ports_.office.setUpView();
    return true;
}

bool TemplateLifecycle::OpenTemplate(const std::string& path) {
    bool opened = false;
    trapped(ports_.office.texts().openProcedure, [&] {
        const std::string file = path.empty() ? dialogs_.askToOpen(ports_.office, startFolder()) : path;
        if (!file.empty()) opened = open(file);
    });
    return opened;
}

bool TemplateLifecycle::open(const std::string& file) {
    if (!ports_.files.exists(file)) RaiseMappingError(kFileDoesNotExist, {file});
    if (!ports_.files.isLocked(file)) return show(ports_.office.fileToOpen(file), FileAccess::Edit);
    const std::optional<FileAccess> access = askForAccess(ports_.messages, ports_.files, file);
    return access && show(file, *access);
}

bool TemplateLifecycle::show(const std::string& path, FileAccess access) {
    std::shared_ptr<DocumentLock> lock = lockFor(path, access);
    if (!passwords_.open(path, access, path)) return false;
    if (ports_.office.document() == nullptr) {
        showMessage(ports_.office.texts().wrongFile, MessageIcon::None);
        restoreFormer();
        return false;
    }
    if (access == FileAccess::Edit && ports_.access.host().isReadOnly()) {
        showMessage(protectedSentence(path), MessageIcon::Information);
        access = FileAccess::ReadOnly;
        lock.reset();
    }
    adopt(access == FileAccess::Copy ? std::string() : path, access, std::move(lock));
    use(path);
    ports_.view.showCaption(captionOf(path, access));
    ports_.office.setUpView();
    return true;
}

/// Locks before the check: of two windows that open a file at the same time, one has to yield.
std::shared_ptr<DocumentLock> TemplateLifecycle::lockFor(const std::string& path, FileAccess access) {
    if (access != FileAccess::Edit) return {};
    if (lock_ && lock_->isOf(path)) return lock_;
    auto lock = std::make_shared<DocumentLock>(path);
    if (ports_.files.exists(path) && ports_.files.isLocked(path))
        RaiseMappingError(kTemplateAlreadyOpened, {path});
    return lock;
}

/// Adopts the file of the document that is shown now; the former file is free again.
void TemplateLifecycle::adopt(const std::string& path, FileAccess access,
                              std::shared_ptr<DocumentLock> lock) {
    templatePath_ = path;
    access_ = access;
    lock_ = std::move(lock);
    keeping_.forget();
    ShowChanges();
}

/// Restores the former document, which was saved, or whose changes were discarded, before another one was
/// opened.
void TemplateLifecycle::restoreFormer() {
    if (templatePath_.empty() || !passwords_.open(templatePath_, access_, templatePath_)) {
        (void)createNew();
        return;
    }
    ports_.office.setUpView();
}

bool TemplateLifecycle::SaveTemplate(SaveTarget target) {
    bool saved = false;
    trapped(ports_.office.texts().saveProcedure, [&] {
        if (ports_.office.document() == nullptr) return;
        const bool isItsOwn = target == SaveTarget::Same && access_ == FileAccess::Edit;
        std::string path = isItsOwn ? templatePath_ : std::string();
        if (path.empty()) path = dialogs_.askToSave(ports_.office, startFolder(), proposedName_);
        if (!path.empty()) saved = saveIn(path);
    });
    return saved;
}

bool TemplateLifecycle::saveIn(const std::string& path) {
    const std::string office = ports_.office.texts().officeName;
    model::OfficeDocument& document = *ports_.office.document();
    // A read-only document and a copy have the name of a file that is not locked by this window.
    const bool isOwn = access_ == FileAccess::Edit && equalsIgnoringCase(templatePath_, path);
    std::shared_ptr<DocumentLock> lock = isOwn ? lock_ : std::make_shared<DocumentLock>(path);
    if (!isOwn && ports_.files.exists(path) && ports_.files.isLocked(path)) {
        showMessage(
            office + " cannot save the template " + path + " because this file is already open elsewhere.",
            MessageIcon::Exclamation);
        return false;
    }
    if (!ports_.office.knowsExtensionOf(path)) {
        throw AutomationError(kFileCouldNotBeSaved, "The template '" + path + "' could not be saved: " +
                                                        office + " has no format for its extension.");
    }
    if (ports_.office.losesPassword(path) && !questions_.acceptsUnprotected(path)) return false;
    if (!isOwn && !ports_.office.keepsPlaces(path)) {
        exportTo(path);
        return false;
    }
    try {
        write(path);
    } catch (const model::DifferingCopy& copy) {
        questions_.offerCopy(copy, path, startFolder());
        return false;
    } catch (const model::LossySave& loss) {
        if (!questions_.acceptsLoss(loss, path, startFolder())) return false;
        document.giveUpOriginal();
        write(path);
    }
    if (!isFileOf(document, path)) return false;
    const bool wasReadOnly = access_ == FileAccess::ReadOnly;
    adopt(path, FileAccess::Edit, std::move(lock));
    passwords_.moveTo(path);
    if (wasReadOnly) show(path, FileAccess::Edit);
    use(path);
    ports_.view.showCaption(captionOf(path, access_));
    ports_.view.showStatus(savedSentence(document, path));
    return true;
}

void TemplateLifecycle::exportTo(const std::string& path) {
    ports_.office.exportCopy(path);
    ports_.view.showStatus(quoted(path) + " was written as a copy. The template itself was not saved.");
}

void TemplateLifecycle::write(const std::string& path) {
    model::OfficeDocument& document = *ports_.office.document();
    if (isFileOf(document, path)) {
        document.Save();
    } else {
        ports_.office.saveAs(path);
    }
}

bool TemplateLifecycle::CloseTemplate() {
    bool closed = false;
    trapped("CloseTemplate", [&] { closed = mayCloseDocument() && createNew(); });
    return closed;
}

bool TemplateLifecycle::mayCloseDocument() {
    model::OfficeDocument* const document = documentOrNone();
    if (document == nullptr) return true;
    ports_.access.host().endInput();
    if (document->Saved()) return true;
    const Message question{"Do you want to save changes to " + nameOf(*document), MessageIcon::Question,
                           MessageButtons::YesNoCancel};
    const MessageAnswer answer = ports_.messages.show(question);
    // The user may have opened a dialog of the office's before the answer.
    if (answer == MessageAnswer::Yes) return !waitsForDialog() && SaveTemplate(SaveTarget::Same);
    return answer == MessageAnswer::No && !waitsForDialog();
}

bool TemplateLifecycle::waitsForDialog() {
    bool waits = false;
    trapped("Execute", [&] {
        waits = documentOrNone() != nullptr && refusesUnderDialog(ports_.access.host(), ports_.messages);
    });
    return waits;
}

/// A restored document has the file name of its kept copy.
std::string TemplateLifecycle::nameOf(model::OfficeDocument& document) const {
    return templatePath_.empty() ? document.Name() : fileNameOnly(templatePath_);
}

/// Returns the document; none also when the office has ended.
model::OfficeDocument* TemplateLifecycle::documentOrNone() {
    try {
        return ports_.office.document();
    } catch (const AutomationError& error) {
        if (error.number() != kNotAvailable) throw;
        return nullptr;
    }
}

void TemplateLifecycle::Execute(HostCommand command) {
    if (waitsForDialog()) return;
    switch (command) {
        case HostCommand::New:
            if (mayStartAnother()) (void)CloseTemplate();
            return;
        case HostCommand::Open:
            OpenInstead({});
            return;
        case HostCommand::Save:
            (void)SaveTemplate(SaveTarget::Same);
            return;
        case HostCommand::SaveAs:
            (void)SaveTemplate(SaveTarget::Asked);
            return;
        case HostCommand::PrintPreview:
            showMessage("PrintPreview is disabled.", MessageIcon::Exclamation);
            return;
        case HostCommand::Close:
            return;
    }
}

void TemplateLifecycle::OpenInstead(const std::string& path) {
    if (!mayStartAnother()) return;
    bool goesOn = false;
    trapped(ports_.office.texts().openProcedure, [&] { goesOn = mayCloseDocument(); });
    if (goesOn) (void)OpenTemplate(path);
}

/// Returns true if another template may be started: a program that was started with a template has to return
/// that one.
bool TemplateLifecycle::mayStartAnother() {
    if (GetCommandLineArgument(kTemplateSwitch).empty()) return true;
    showMessage("The operation is disabled in this context.", MessageIcon::Exclamation);
    return false;
}

bool TemplateLifecycle::Unload() {
    bool mayClose = true;
    trapped("Form_Unload", [&] { mayClose = !waitsForDialog() && mayCloseDocument(); });
    if (!mayClose) return false;
    trapped("Form_Unload", [&] { keeping_.forget(); });
    Terminate();
    restoreView();
    return true;
}

void TemplateLifecycle::Terminate() {
    trap(ports_.errors, kMainForm, "Form_Terminate", [] { DeleteXmlFileIfRequested(); });
}

void TemplateLifecycle::restoreView() {
    if (documentOrNone() == nullptr) return;
    trapped("Form_Unload", [&] { ports_.office.restoreView(); });
}

std::string TemplateLifecycle::startFolder() const {
    for (const std::string& folder : {lastFolder_, templatesFolder_})
        if (!folder.empty()) return folder;
    return documentsFolder_;
}

template <typename Body>
void TemplateLifecycle::trapped(const char* procedure, const Body& body, const std::source_location& place) {
    try {
        body();
    } catch (const AutomationError& error) {
        if (isMappingError(error.number())) {
            showMessage(error.description(), MessageIcon::Exclamation);
        } else {
            ports_.errors.report({error.number(), error.description(), templatePath_, kMainForm, procedure,
                                  shownPlace(error.place())});
        }
    } catch (const std::exception& error) {
        ports_.errors.report({0, error.what(), templatePath_, kMainForm, procedure, shownPlace(place)});
    }
}

void TemplateLifecycle::showMessage(const std::string& text, MessageIcon icon) {
    (void)ports_.messages.show({text, icon, MessageButtons::Ok});
}

}  // namespace mergeloom
