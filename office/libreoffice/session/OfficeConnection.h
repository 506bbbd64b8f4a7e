#pragma once

#include "office/libreoffice/session/IdleInterruption.h"
#include "office/libreoffice/session/InsideLine.h"
#include "office/libreoffice/session/LibreOfficeProcess.h"
#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/Watchdog.h"

#include <chrono>
#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The pattern of requests to our library in the office. During a series the office's main thread waits for
/// the next request and does nothing else, so the user cannot edit in between. Outside a drop the user would
/// notice that.
enum class RequestPattern { Single, Series };

/// The connection to an office. Each call to it goes through call(), which bounds the time and turns UNO's
/// exceptions into the program's errors; a remote call takes about half a millisecond, so one should carry
/// much.
class OfficeConnection {
  public:
    /// Waits until the office listens. Raises kNotAvailable when it does not within the bound or ends before.
    explicit OfficeConnection(LibreOfficeProcess& process, TimeBounds bounds = {});
    OfficeConnection(const OfficeConnection&) = delete;
    OfficeConnection& operator=(const OfficeConnection&) = delete;
    /// Asks the office to end, and waits until it has.
    ~OfficeConnection();

    /// Returns the office's own context, for making its services: `SomeService::create(connection.context())`
    /// within a call.
    [[nodiscard]] const Reference<css::uno::XComponentContext>& context() const { return context_; }
    [[nodiscard]] const Reference<css::frame::XDesktop2>& desktop() const { return desktop_; }
    [[nodiscard]] const LibreOfficeProcess& process() const { return process_; }

    /// Runs the body, which calls into UNO, and returns its result. Calls within a call share its time.
    /// Raises
    /// - kNotAvailable when the office ended or took too long and was ended; nothing works after that,
    /// - kObjectDeleted when the object that was called is gone, such as a document that was closed,
    /// - kCommandFailed, with UNO's own message, for all other exceptions of UNO.
    /// AutomationErrors pass through.
    template <typename Call>
    auto call(const Call& body) -> decltype(body()) {
        const OpenCall open(*this);
        try {
            rest();
            return body();
        } catch (const css::uno::Exception&) {
            raiseCurrent();
        }
    }

    /// Returns the answer of our library inside the office, which is loaded with the first request; see
    /// InsideLine. Errors as for call.
    std::string askInside(const std::string& request);
    /// Registers a document in that library and returns its number.
    std::int64_t handInside(const DocumentReference& document);

    /// Returns the package in an encrypted file of Open Packaging, which is decrypted in the office's memory;
    /// none for another file and for a wrong password. Errors of this member and the next one as for call.
    std::optional<std::string> decrypted(const std::string& file, const std::string& password);
    /// Returns the encrypted file of a package.
    std::string encrypted(const std::string& package, const std::string& password);

    /// Returns the rectangles of the named cells that the workbook's window shows; see InsideLine.
    NamedCells namedCells(const DocumentReference& workbook);

    /// Sets the pattern of later requests. The default is Single.
    void expect(RequestPattern pattern) { pattern_ = pattern; }

    /// Makes all later calls that wait interrupt the office's idle tasks by the function, which another
    /// thread calls; by none if it is empty. Must not be called within a call.
    void interruptIdleTasks(std::function<void()> interrupt);

  private:
    /// Bounds the time of a call, and lets it interrupt the office's idle tasks.
    class OpenCall {
      public:
        explicit OpenCall(OfficeConnection& connection)
            : watch_(connection.watchdog_),
              interruption_(connection.interruption_ ? &*connection.interruption_ : nullptr) {
            if (interruption_ != nullptr) interruption_->begin();
        }
        OpenCall(const OpenCall&) = delete;
        OpenCall& operator=(const OpenCall&) = delete;
        ~OpenCall() {
            if (interruption_ != nullptr) interruption_->end();
        }

      private:
        Watchdog::Watch watch_;
        IdleInterruption* interruption_;
    };

    [[nodiscard]] InsideLine& inside();
    void rest();
    void connect(std::chrono::milliseconds bound);
    [[nodiscard]] bool tryToConnect();
    void requestQuit();
    [[nodiscard]] bool responds() const;
    [[noreturn]] void raiseCurrent();
    [[noreturn]] void raiseEnded();

    LibreOfficeProcess& process_;
    Watchdog watchdog_;
    std::optional<IdleInterruption> interruption_;
    Reference<css::uno::XComponentContext> context_;
    Reference<css::frame::XDesktop2> desktop_;
    std::optional<InsideLine> inside_;
    RequestPattern pattern_ = RequestPattern::Single;
};

}  // namespace mergeloom::libreoffice
