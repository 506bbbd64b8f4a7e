#pragma once

#include "office/libreoffice/session/Uno.h"

#include <atomic>
#include <com/sun/star/task/PasswordRequest.hpp>
#include <com/sun/star/task/XInteractionAbort.hpp>
#include <com/sun/star/task/XInteractionHandler2.hpp>
#include <cppuhelper/implbase1.hxx>

namespace mergeloom::libreoffice {

/// Refuses every question of an office in place of a user.
class RefusingInteractionHandler final : public cppu::WeakImplHelper1<css::task::XInteractionHandler2> {
  public:
    /// Returns true if the office has asked for a password.
    [[nodiscard]] bool wantsPassword() const { return wantsPassword_; }

    void SAL_CALL handle(const Reference<css::task::XInteractionRequest>& request) override {
        handleInteractionRequest(request);
    }
    sal_Bool SAL_CALL
    handleInteractionRequest(const Reference<css::task::XInteractionRequest>& request) override {
        const auto password = cppu::UnoType<css::task::PasswordRequest>::get();
        if (request->getRequest().isExtractableTo(password)) wantsPassword_ = true;
        for (const Reference<css::task::XInteractionContinuation>& answer : request->getContinuations()) {
            const Reference<css::task::XInteractionAbort> abort(answer, UNO_QUERY);
            if (!abort.is()) continue;
            abort->select();
            break;
        }
        return true;
    }

  private:
    std::atomic<bool> wantsPassword_ = false;  ///< set by a thread of UNO
};

}  // namespace mergeloom::libreoffice
