#include "base/AutomationError.h"
#include "office/libreoffice/calls/CallPipe.h"
#include "office/libreoffice/calls/CallValues.h"
#include "office/libreoffice/job/CallHandler.h"
#include "office/libreoffice/job/NamedCells.h"
#include "office/libreoffice/job/PackageCipher.h"
#include "office/libreoffice/session/InsideLine.h"
#include "office/libreoffice/session/UnoErrors.h"
#include "office/libreoffice/session/UnoText.h"

#include <chrono>
#include <com/sun/star/awt/AsyncCallback.hpp>
#include <com/sun/star/awt/XCallback.hpp>
#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <cppuhelper/factory.hxx>
#include <cppuhelper/implbase2.hxx>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

using Context = Reference<css::uno::XComponentContext>;

/// The time for which the main thread waits for a request before it returns to the office's work.
constexpr std::chrono::milliseconds kPatience{100};

/// Returns the answer for the exception that is being handled.
std::string currentFailure() {
    try {
        translatingErrors([] { throw; });
    } catch (const AutomationError& error) {
        return failedCall(error.number(), error.description());
    } catch (const std::exception& error) {
        return failedCall(kCommandFailed,
                          std::string("A fault of the program in LibreOffice: ") + error.what());
    } catch (...) {
        return failedCall(kCommandFailed, "A fault of the program in LibreOffice.");
    }
    return {};
}

/// Returns the handler's answer, or that of a failed call if the handler throws: an exception that leaves the
/// library would end the office.
std::string answerOrFailure(CallHandler& handler, const std::string& request) noexcept {
    try {
        return handler.answer(request);
    } catch (...) {
        return currentFailure();
    }
}

/// The interface of the library to the office: executes commands on any thread and answers requests on the
/// main thread.
class InsideJob final : public cppu::WeakImplHelper2<css::task::XJob, css::awt::XCallback> {
  public:
    explicit InsideJob(const Context& office) : office_(office), handler_(makeCallHandler(office)) {}

    css::uno::Any SAL_CALL execute(const css::uno::Sequence<css::beans::NamedValue>& arguments) override {
        try {
            if (arguments.hasElements()) return run(fromUno(arguments[0].Name), arguments[0].Value);
        } catch (const css::uno::Exception&) {
            throw;
        } catch (const std::exception& error) {
            throw css::uno::RuntimeException(toUno(error.what()));
        } catch (...) {
            throw css::uno::RuntimeException("A fault of the program.");
        }
        throw css::lang::IllegalArgumentException("There is no command.", {}, 0);
    }

    void SAL_CALL notify(const css::uno::Any&) override {
        try {
            while (answerOne()) {
            }
        } catch (...) {
            // The other process has ended or closed the pipe, so no answer is expected.
        }
    }

  private:
    css::uno::Any run(const std::string& command, const css::uno::Any& value) {
        if (command == kInsideConnect) {
            pipe_.emplace(connectToListener(fromUno(value.get<OUString>())));
            pipe_->setPatience(kPatience);
            return {};
        }
        if (command == kInsideServe) {
            css::awt::AsyncCallback::create(office_)->addCallback(this, {});
            return {};
        }
        if (command == kInsideDocument)
            return css::uno::Any(sal_Int64{handler_->take(value.get<DocumentReference>())});
        if (command == kInsideDecrypt || command == kInsideEncrypt)
            return cipher(command, value.get<css::uno::Sequence<css::uno::Any>>());
        if (command == kInsideNamedCells) return namedCells(value.get<DocumentReference>());
        throw css::lang::IllegalArgumentException(toUno("There is no command '" + command + "'."), {}, 0);
    }

    css::uno::Any cipher(const std::string& command, const css::uno::Sequence<css::uno::Any>& values) {
        const auto bytes = values[0].get<PackageCipher::Bytes>();
        const auto password = values[1].get<OUString>();
        const PackageCipher cipher(office_);
        if (command == kInsideEncrypt) return css::uno::Any(cipher.encrypted(bytes, password));
        const std::optional<PackageCipher::Bytes> package = cipher.decrypted(bytes, password);
        return package ? css::uno::Any(*package) : css::uno::Any();
    }

    css::uno::Any namedCells(const DocumentReference& workbook) {
        css::uno::Sequence<css::uno::Any> answer(2);
        answer.getArray()[1] <<= names_.read(workbook);
        answer.getArray()[0] <<= boundsInWindow(workbook, names_);
        return css::uno::Any(answer);
    }

    /// Returns false if the main thread must return to the office's work.
    bool answerOne() {
        const std::optional<CallFrame> frame = pipe_->tryToReceive();
        const bool isRequest = frame && frame->kind == FrameKind::Request;
        pipe_->send(isRequest ? FrameKind::Answer : FrameKind::Resting,
                    isRequest ? answerOrFailure(*handler_, frame->bytes) : std::string());
        return isRequest;
    }

    Context office_;
    std::unique_ptr<CallHandler> handler_;
    std::optional<CallPipe> pipe_;
    NamedAreas names_;
};

Reference<css::uno::XInterface> makeJob(const Context& office) {
    return static_cast<cppu::OWeakObject*>(new InsideJob(office));
}

}  // namespace

}  // namespace mergeloom::libreoffice

/// Returns the factory of the job. UNO's loader looks for this name.
extern "C" void* component_getFactory(const char* name, void*, void*) try {
    const rtl::OUString implementation = rtl::OUString::createFromAscii(name);
    const auto factory = cppu::createSingleComponentFactory(mergeloom::libreoffice::makeJob, implementation,
                                                            com::sun::star::uno::Sequence<rtl::OUString>());
    factory->acquire();
    return factory.get();
} catch (...) {
    return nullptr;
}
