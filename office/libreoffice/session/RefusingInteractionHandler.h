#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/task/XInteractionHandler2.hpp>
#include <cppuhelper/implbase1.hxx>
#include <mutex>

namespace mergeloom::libreoffice {

/// What an office wanted to know of a user.
enum class Question { None, Password, Other };

/// Answers every question of an office in place of a user: no. Remembers what was asked.
class RefusingInteractionHandler final : public cppu::WeakImplHelper1<css::task::XInteractionHandler2> {
  public:
    /// The most telling of the questions so far.
    [[nodiscard]] Question asked();

    void SAL_CALL handle(const Reference<css::task::XInteractionRequest>& request) override;
    sal_Bool SAL_CALL
    handleInteractionRequest(const Reference<css::task::XInteractionRequest>& request) override;

  private:
    std::mutex mutex_;  ///< questions come on a thread of UNO's
    Question asked_ = Question::None;
};

}  // namespace mergeloom::libreoffice
