#pragma once

#include "base/DocumentLock.h"
#include "base/ErrorHandler.h"
#include "base/Messages.h"
#include "office/model/DocumentHost.h"
#include "office/model/OfficeDocument.h"
#include "ui/designer/DocumentKeeping.h"
#include "ui/designer/HostedOffice.h"
#include "ui/designer/SaveQuestions.h"
#include "ui/designer/TemplateDialogs.h"
#include "ui/designer/TemplateFiles.h"
#include "ui/designer/TemplateOffice.h"
#include "ui/designer/TemplatePasswords.h"

#include <memory>
#include <source_location>
#include <string>

namespace mergeloom {

/// The changes of the window by the rules for templates. Called by the office's thread.
class LifecycleView {
  public:
    LifecycleView() = default;
    LifecycleView(const LifecycleView&) = delete;
    LifecycleView& operator=(const LifecycleView&) = delete;
    virtual ~LifecycleView() = default;

    virtual void showCaption(const std::string& caption) = 0;
    /// Shows whether the document has changes that are not saved.
    virtual void showChanges(bool hasChanges) = 0;
    /// Called when the user opened a file, or saved in it.
    virtual void noteFile(const std::string& path) = 0;
    /// Shows what was done.
    virtual void showStatus(const std::string& text) = 0;
};

enum class SaveTarget { Same, Asked };

/// The life of the template in the window: the rules without the window. A file that is open for editing is
/// locked for other windows and programs. All of it runs on the office's thread. No error leaves it: mapping
/// errors are shown to the user, all others go to the error handler.
class TemplateLifecycle {
  public:
    /// The objects that have to outlive it.
    struct Ports {
        HostAccess& access;
        TemplateOffice& office;
        Messages& messages;
        ErrorHandler& errors;
        FileDialog& dialog;
        PasswordDialog& passwords;
        TemplateFiles& files;
        LifecycleView& view;
        KeptCopies& copies;
    };

    explicit TemplateLifecycle(const Ports& ports)
        : ports_(ports),
          dialogs_(ports.dialog),
          questions_(ports.messages, ports.office, ports.files, ports.dialog),
          passwords_(ports.access, ports.passwords),
          keeping_(ports.access, ports.office, ports.messages, ports.copies) {}

    /// Sets the folder in which the dialogs begin until a file of another one is opened or saved; empty for
    /// no folder in particular.
    void SetTemplatesFolder(const std::string& folder);
    void SetDocumentsFolder(const std::string& folder) { documentsFolder_ = folder; }
    /// Returns the file that is open, or in which the template was saved last; empty for a new one and for a
    /// copy.
    [[nodiscard]] const std::string& TemplatePath() const { return templatePath_; }

    /// Shows an empty template, then the one that the command line names, if any, or a copy that was kept of
    /// unsaved work and that the user wants. Returns false when nothing is hosted.
    bool Start();
    /// Shows the copy that was kept, or else the template that was saved last, in an office that was started
    /// anew.
    bool Restart();
    /// Keeps a copy of the document if it has changes that were neither saved nor kept.
    void KeepCopy();
    /// Shows whether the document has changes.
    void ShowChanges();
    /// Opens a template in place of the one that is open, unless the user cancels; asks for it when the path
    /// is empty.
    void OpenInstead(const std::string& path);
    /// Opens a template; asks the user for it when the path is empty. One that is open elsewhere can be read,
    /// or opened as a copy.
    bool OpenTemplate(const std::string& path = {});
    /// Returns true if the template was saved. In a format that keeps no places, only a copy is written: the
    /// template keeps its name, its file and its changes.
    bool SaveTemplate(SaveTarget target);
    /// Shows an empty template in place of the one that is open, unless the user cancels.
    bool CloseTemplate();
    /// Executes a command of the window's menus or of the office's own. Closing the window is the window's
    /// own task.
    void Execute(HostCommand command);

    /// Prepares the closing of the window; returns false when it has to stay.
    bool Unload();
    /// Ends the office's work at the end of the program.
    void Terminate();

  private:
    /// Returns true, after a message to the user, if the office has an open dialog.
    bool waitsForDialog();
    bool createNew();
    bool open(const std::string& file);
    bool show(const std::string& path, FileAccess access);
    bool restoreKept(const std::string& file);
    bool restore(const KeptCopy& copy);
    std::shared_ptr<DocumentLock> lockFor(const std::string& path, FileAccess access);
    void adopt(const std::string& path, FileAccess access, std::shared_ptr<DocumentLock> lock);
    void restoreFormer();
    bool saveIn(const std::string& path);
    void write(const std::string& path);
    void exportTo(const std::string& path);
    /// Returns true if the document may be closed: it is saved, or the user discards the changes.
    bool mayCloseDocument();
    bool mayStartAnother();
    void restoreView();
    model::OfficeDocument* documentOrNone();
    std::string nameOf(model::OfficeDocument& document) const;
    [[nodiscard]] std::string newName() const;
    void use(const std::string& path);
    [[nodiscard]] std::string startFolder() const;
    template <typename Body>
    void trapped(const char* procedure, const Body& body,
                 const std::source_location& place = std::source_location::current());
    void showMessage(const std::string& text, MessageIcon icon);

    Ports ports_;
    TemplateDialogs dialogs_;
    SaveQuestions questions_;
    TemplatePasswords passwords_;
    DocumentKeeping keeping_;
    std::string templatesFolder_;
    std::string documentsFolder_;
    std::string lastFolder_;  ///< of the file that was opened or saved last
    std::string templatePath_;
    std::string proposedName_;
    FileAccess access_ = FileAccess::Edit;
    std::shared_ptr<DocumentLock> lock_;
};

}  // namespace mergeloom
