#include "office/libreoffice/session/OfficeConnection.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/LateAnswers.h"
#include "office/libreoffice/session/PollingThread.h"
#include "office/libreoffice/session/UnoErrors.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/uno/Exception.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>
#include <system_error>
#include <thread>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr const char* kUnoFolder = MERGELOOM_UNO_FOLDER;

Reference<css::uno::XComponentContext> makeContext() try {
    const std::string folder = kUnoFolder;
    rtl::Bootstrap::set("URE_BOOTSTRAP", toUno("vnd.sun.star.pathname:" + folder + "/fundamentalrc"));
    return cppu::defaultBootstrap_InitialComponentContext(toUno(fileUrl(folder + "/unorc")));
} catch (const css::uno::Exception& error) {
    throw AutomationError(kNotAvailable, "The libraries of LibreOffice in '" + std::string(kUnoFolder) +
                                             "' are not complete: " + fromUno(error.Message));
}

/// Returns this process's own context of UNO, which is created once and never destroyed. Raises kNotAvailable
/// when the installed libraries are not complete.
const Reference<css::uno::XComponentContext>& localContext() {
    // UNO's own threads may still use it while the program ends.
    static const auto* const context = new Reference<css::uno::XComponentContext>(makeContext());
    return *context;
}

constexpr std::chrono::milliseconds kRetryPause{20};
constexpr std::chrono::milliseconds kPauseOfInterruption{10};
constexpr std::chrono::seconds kQuitCallTimeout{10};

[[noreturn]] void raiseNotConnected(const LibreOfficeProcess& process, const std::string& reason) {
    const std::string words = process.logTail();
    throw AutomationError(kNotAvailable, "LibreOffice could not be started: " + reason + "." +
                                             (words.empty() ? "" : " Its last words: " + words));
}

std::string inSeconds(std::chrono::milliseconds time) {
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(time).count();
    return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

}  // namespace

OfficeConnection::OfficeConnection(LibreOfficeProcess& process, TimeBounds bounds)
    : process_(process), watchdog_(bounds.call, [&process] { process.kill(); }) {
    connect(bounds.start);
    const BlockedSignals blocked;
    desktop_ = call([this] { return css::frame::Desktop::create(context_); });
}

OfficeConnection::~OfficeConnection() {
    requestQuit();
    discardLateAnswers();
    inside_.reset();
    desktop_.clear();
    context_.clear();
    process_.end();
}

void OfficeConnection::requestQuit() try {
    if (!process_.isRunning()) return;
    Watchdog impatient(kQuitCallTimeout, [this] { process_.kill(); });
    const Watchdog::Watch watch(impatient);
    rest();
    desktop_->terminate();
} catch (const css::uno::Exception&) {
    // It ends during the call, or is made to end.
}

void OfficeConnection::connect(std::chrono::milliseconds bound) {
    Watchdog watchdog(bound, [this] { process_.kill(); });
    const Watchdog::Watch watch(watchdog);
    while (!tryToConnect()) {
        if (watchdog.hasTimedOut())
            raiseNotConnected(process_, "it did not answer within " + inSeconds(bound));
        if (!process_.isRunning()) raiseNotConnected(process_, "it ended by itself");
        std::this_thread::sleep_for(kRetryPause);
    }
}

/// Returns false also when the connection breaks meanwhile: the caller looks at the process.
bool OfficeConnection::tryToConnect() try {
    // UNO's threads for reading and writing are started here. Between two attempts a signal gets through.
    const BlockedSignals blocked;
    const auto resolver = css::bridge::UnoUrlResolver::create(localContext());
    const OUString address =
        toUno("uno:pipe,name=" + process_.pipeName() + ";urp;StarOffice.ComponentContext");
    context_.set(resolver->resolve(address), UNO_QUERY_THROW);
    return true;
} catch (const css::uno::Exception&) {
    discardLateAnswers();
    return false;
}

bool OfficeConnection::responds() const try {
    return desktop_.is() && desktop_->getFrames().is();
} catch (const css::uno::Exception&) {
    return false;
}

/// Raises the program's error for the exception that is being handled.
void OfficeConnection::raiseCurrent() {
    if (!responds()) raiseEnded();
    raiseUnoError();
}

InsideLine& OfficeConnection::inside() {
    if (!inside_) {
        // UNO may start threads for the calls that go with it.
        const BlockedSignals blocked;
        inside_.emplace(context_, insideLibrary(), process_.workFolder());
    }
    return *inside_;
}

/// Treats a broken line like a UNO call to an office that has ended.
std::string OfficeConnection::askInside(const std::string& request) {
    const OpenCall open(*this);
    try {
        std::string answer = inside().ask(request);
        if (pattern_ == RequestPattern::Single) inside().rest();
        return answer;
    } catch (const css::uno::Exception&) {
        raiseCurrent();
    } catch (const std::system_error&) {
        raiseEnded();
    }
}

std::int64_t OfficeConnection::handInside(const DocumentReference& document) {
    return call([&] { return inside().handOver(document); });
}

std::optional<std::string> OfficeConnection::decrypted(const std::string& file, const std::string& password) {
    return call([&] { return inside().decrypted(file, password); });
}

std::string OfficeConnection::encrypted(const std::string& package, const std::string& password) {
    return call([&] { return inside().encrypted(package, password); });
}

NamedCells OfficeConnection::namedCells(const DocumentReference& workbook) {
    return call([&] { return inside().namedCells(workbook); });
}

void OfficeConnection::interruptIdleTasks(std::function<void()> interrupt) {
    interruption_.reset();
    if (interrupt) interruption_.emplace(kPauseOfInterruption, std::move(interrupt));
}

/// Ignores a broken line: the call that follows notices that the office has ended.
void OfficeConnection::rest() try {
    if (inside_) inside_->rest();
} catch (const std::system_error&) {
    inside_.reset();
}

void OfficeConnection::raiseEnded() {
    discardLateAnswers();
    const std::string loss = " Changes that were not saved are lost.";
    if (watchdog_.hasTimedOut()) {
        throw AutomationError(kNotAvailable, "LibreOffice did not answer within " +
                                                 inSeconds(watchdog_.bound()) + " and was ended." + loss);
    }
    throw AutomationError(kNotAvailable, "LibreOffice ended unexpectedly." + loss);
}

}  // namespace mergeloom::libreoffice
