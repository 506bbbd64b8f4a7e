#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/task/XInteractionHandler2.hpp>
#include <cppuhelper/implbase1.hxx>
#include <mutex>

namespace mergeloom::libreoffice {

/// The questions that an office asks a user.
enum class Question { None, Password, Other };

/// Refuses every question of an office in place of a user. Remembers the question.
class RefusingInteractionHandler final : public cppu::WeakImplHelper1<css::task::XInteractionHandler2> {
  public:
    /// Returns the most specific question so far.
    [[nodiscard]] Question asked();

    void SAL_CALL handle(const Reference<css::task::XInteractionRequest>& request) override;
    sal_Bool SAL_CALL
    handleInteractionRequest(const Reference<css::task::XInteractionRequest>& request) override;

  private:
    std::mutex mutex_;  ///< questions come from a thread of UNO's
    Question asked_ = Question::None;
};

}  // namespace mergeloom::libreoffice
