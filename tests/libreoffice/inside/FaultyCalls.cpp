#include "base/AutomationError.h"
#include "office/libreoffice/calls/CallValues.h"
#include "office/libreoffice/job/CallHandler.h"

#include <signal.h>
#include <unistd.h>

#include <com/sun/star/lang/DisposedException.hpp>
#include <stdexcept>

namespace mergeloom::libreoffice {

namespace {

/// A handler that throws the error named in a request.
class FaultyCalls final : public CallHandler {
  public:
    std::string answer(const std::string& request) override {
        if (request == "automation") throw AutomationError(kMemberNotFound, "There is no such place.");
        if (request == "uno") throw css::uno::Exception("refused", {});
        if (request == "disposed") throw css::lang::DisposedException("gone", {});
        if (request == "standard") throw std::out_of_range("too far");
        if (request == "other") throw 42;
        if (request == "death") ::kill(::getpid(), SIGKILL);
        CallWriter answer = doneCall();
        answer.text(request);
        return answer.bytes();
    }
    std::int64_t take(const DocumentReference&) override { throw 42; }
};

}  // namespace

std::unique_ptr<CallHandler> makeCallHandler(const Reference<css::uno::XComponentContext>&) {
    return std::make_unique<FaultyCalls>();
}

}  // namespace mergeloom::libreoffice
