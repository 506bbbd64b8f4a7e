#pragma once

#include "base/AutomationError.h"
#include "base/Messages.h"
#include "office/model/DocumentHost.h"

#include <QObject>
#include <functional>
#include <memory>
#include <utility>

namespace mergeloom {

/// Access to the office inside the window, which may be started more than once in a run.
class HostAccess {
  public:
    HostAccess() = default;
    HostAccess(const HostAccess&) = delete;
    HostAccess& operator=(const HostAccess&) = delete;
    virtual ~HostAccess() = default;

    /// Returns the office. Raises kNotAvailable while none runs.
    virtual DocumentHost& host() = 0;
};

/// The office inside the window. It belongs to the office's thread, like the office itself.
class HostedOffice final : public HostAccess {
  public:
    using Starter = std::function<std::unique_ptr<DocumentHost>(const HostWindow& window, DocumentKind kind)>;

    explicit HostedOffice(Starter start) : start_(std::move(start)) {}

    /// Starts an office in place of the former one. Errors as for makeDocumentHost.
    void start(const HostWindow& window, DocumentKind kind) {
        end();
        host_ = start_(window, kind);
    }
    void end() { host_.reset(); }
    [[nodiscard]] bool isRunning() const { return host_ != nullptr; }

    DocumentHost& host() override;

  private:
    Starter start_;
    std::unique_ptr<DocumentHost> host_;
};

/// Passes the events of the office from its threads to that of the windows. The office never waits for that,
/// so the signals come later.
class HostEvents final : public QObject, public HostListener {
    Q_OBJECT

  public:
    void fileCommand(HostCommand command) override;
    void keyPressed(HostKey key) override;
    void changesBeganOrEnded() override;
    void marksMayHaveMoved() override;
    void officeEnded() override;

  Q_SIGNALS:
    void commandGiven(mergeloom::HostCommand command);
    void keyGiven(mergeloom::HostKey key);
    void changesBegunOrEnded();
    void marksMoved();
    void ended();
};

/// Returns true, after a message to the user, if the office shows a modal dialog.
bool refusesUnderDialog(DocumentHost& host, Messages& messages);

/// Returns true if the document was opened for reading only, and then informs the user.
bool refusesChanges(DocumentHost& host, Messages& messages);

/// Lets the object model work on the hosted document during its life: the user cannot edit it, and the
/// model's selection is the view's.
class HostEditing {
  public:
    explicit HostEditing(DocumentHost& host) : host_(host) { host_.beginEditing(); }
    HostEditing(const HostEditing&) = delete;
    HostEditing& operator=(const HostEditing&) = delete;
    ~HostEditing() {
        try {
            host_.endEditing();
        } catch (const AutomationError&) {
            return;  // The office has ended, which is reported by itself.
        }
    }

  private:
    DocumentHost& host_;
};

}  // namespace mergeloom
