#include "office/libreoffice/session/RefusingInteractionHandler.h"

#include <com/sun/star/task/PasswordRequest.hpp>
#include <com/sun/star/task/XInteractionAbort.hpp>

namespace mergeloom::libreoffice {

namespace {

Question kindOf(const css::uno::Any& request) {
    const bool isPassword = request.isExtractableTo(cppu::UnoType<css::task::PasswordRequest>::get());
    return isPassword ? Question::Password : Question::Other;
}

}  // namespace

Question RefusingInteractionHandler::asked() {
    const std::lock_guard lock(mutex_);
    return asked_;
}

void RefusingInteractionHandler::handle(const Reference<css::task::XInteractionRequest>& request) {
    handleInteractionRequest(request);
}

sal_Bool RefusingInteractionHandler::handleInteractionRequest(
    const Reference<css::task::XInteractionRequest>& request) {
    {
        const std::lock_guard lock(mutex_);
        if (asked_ != Question::Password) asked_ = kindOf(request->getRequest());
    }
    for (const Reference<css::task::XInteractionContinuation>& answer : request->getContinuations()) {
        const Reference<css::task::XInteractionAbort> no(answer, UNO_QUERY);
        if (!no.is()) continue;
        no->select();
        break;
    }
    return true;
}

}  // namespace mergeloom::libreoffice
