#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/DocumentHost.h"

#include <com/sun/star/frame/XDispatch.hpp>
#include <com/sun/star/frame/XDispatchProviderInterceptor.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/frame/XInterceptorInfo.hpp>
#include <cppuhelper/implbase3.hxx>
#include <functional>
#include <mutex>

namespace mergeloom::libreoffice {

/// Receives a command; called by threads of the bridge, while the office waits.
using CommandSink = std::function<void(HostCommand)>;

/// Intercepts the commands of a frame that make, load, save and close documents, and passes them to the
/// window; those that would put another document into the frame have no effect.
class CommandInterceptor final
    : public cppu::WeakImplHelper3<css::frame::XDispatchProviderInterceptor, css::frame::XInterceptorInfo,
                                   css::frame::XDispatch> {
  public:
    explicit CommandInterceptor(CommandSink sink) : sink_(std::move(sink)) {}

    using UrlSequence = css::uno::Sequence<OUString>;
    using DispatchReference = Reference<css::frame::XDispatch>;
    using ProviderReference = Reference<css::frame::XDispatchProvider>;

    UrlSequence SAL_CALL getInterceptedURLs() override;
    DispatchReference SAL_CALL queryDispatch(const css::util::URL& url, const OUString& target,
                                             sal_Int32 flags) override;
    css::uno::Sequence<DispatchReference> SAL_CALL
    queryDispatches(const css::uno::Sequence<css::frame::DispatchDescriptor>& descriptors) override;
    void SAL_CALL dispatch(const css::util::URL& url,
                           const css::uno::Sequence<css::beans::PropertyValue>& arguments) override;
    void SAL_CALL addStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                    const css::util::URL& url) override;
    void SAL_CALL removeStatusListener(const Reference<css::frame::XStatusListener>&,
                                       const css::util::URL&) override {}

    ProviderReference SAL_CALL getSlaveDispatchProvider() override;
    void SAL_CALL setSlaveDispatchProvider(const ProviderReference& provider) override;
    ProviderReference SAL_CALL getMasterDispatchProvider() override;
    void SAL_CALL setMasterDispatchProvider(const ProviderReference& provider) override;

  private:
    const CommandSink sink_;
    std::mutex mutex_;
    ProviderReference slave_;
    ProviderReference master_;
};

}  // namespace mergeloom::libreoffice
