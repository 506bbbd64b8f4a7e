#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/document/XDocumentEventListener.hpp>
#include <cppuhelper/implbase1.hxx>
#include <functional>
#include <utility>

namespace mergeloom::libreoffice {

/// Watches documents for their first change and for the end of all changes. Ignores the changes in
/// between, each of which would cost a call.
class ChangeWatch final : public cppu::WeakImplHelper1<css::document::XDocumentEventListener> {
  public:
    /// The sink is called by threads of the bridge, while the office waits.
    explicit ChangeWatch(std::function<void()> sink) : sink_(std::move(sink)) {}

    /// Watches a document until it is closed. Must be called within OfficeConnection::call.
    void watch(const DocumentReference& document);

    void SAL_CALL documentEventOccured(const css::document::DocumentEvent& event) override;
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

  private:
    const std::function<void()> sink_;
};

}  // namespace mergeloom::libreoffice
