#include "office/libreoffice/host/CommandInterceptor.h"

#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/frame/FeatureStateEvent.hpp>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

struct Intercepted {
    std::string_view url;  ///< may end in "*"
    std::optional<HostCommand> command;
};

constexpr Intercepted kIntercepted[] = {
    {".uno:AddDirect", HostCommand::New},
    {".uno:NewDoc", HostCommand::New},
    {"private:factory/*", HostCommand::New},
    {".uno:Open", HostCommand::Open},
    {".uno:OpenFromWriter", HostCommand::Open},
    {".uno:OpenFromCalc", HostCommand::Open},
    {".uno:Save", HostCommand::Save},
    {".uno:SaveAll", HostCommand::Save},
    {".uno:SaveAs", HostCommand::SaveAs},
    {".uno:CloseDoc", HostCommand::Close},
    {".uno:CloseWin", HostCommand::Close},
    {".uno:CloseFrame", HostCommand::Close},
    {".uno:Quit", HostCommand::Close},
    {".uno:PrintPreview", HostCommand::PrintPreview},
    // These would load a file in place of the document or show it elsewhere.
    {"file:*", {}},
    {".uno:OpenUrl", {}},
    {".uno:OpenRemote", {}},
    {".uno:SaveAsRemote", {}},
    {".uno:SaveAsTemplate", {}},
    {".uno:NewWindow", {}},
    {".uno:Reload", {}},
    {".uno:EditDoc", {}},
    {".uno:FullScreen", {}},
    {".uno:ReadOnlyDoc", {}},
};

bool matches(const Intercepted& intercepted, std::string_view url) {
    if (!intercepted.url.ends_with('*')) return url == intercepted.url;
    return url.starts_with(intercepted.url.substr(0, intercepted.url.size() - 1));
}

const Intercepted* find(const css::util::URL& url) {
    const std::string text = fromUno(url.Complete);
    const auto* const found =
        std::ranges::find_if(kIntercepted, [&](const Intercepted& known) { return matches(known, text); });
    return found == std::end(kIntercepted) ? nullptr : found;
}

}  // namespace

CommandInterceptor::UrlSequence CommandInterceptor::getInterceptedURLs() {
    UrlSequence urls(static_cast<sal_Int32>(std::size(kIntercepted)));
    std::ranges::transform(kIntercepted, urls.getArray(),
                           [](const Intercepted& known) { return toUno(known.url); });
    return urls;
}

CommandInterceptor::DispatchReference CommandInterceptor::queryDispatch(const css::util::URL& url,
                                                                        const OUString& target,
                                                                        sal_Int32 flags) {
    if (find(url) != nullptr) return this;
    const ProviderReference slave = getSlaveDispatchProvider();
    return slave.is() ? slave->queryDispatch(url, target, flags) : DispatchReference();
}

css::uno::Sequence<CommandInterceptor::DispatchReference> CommandInterceptor::queryDispatches(
    const css::uno::Sequence<css::frame::DispatchDescriptor>& descriptors) {
    css::uno::Sequence<DispatchReference> dispatches(descriptors.getLength());
    std::ranges::transform(descriptors, dispatches.getArray(),
                           [this](const css::frame::DispatchDescriptor& wanted) {
                               return queryDispatch(wanted.FeatureURL, wanted.FrameName, wanted.SearchFlags);
                           });
    return dispatches;
}

void CommandInterceptor::dispatch(const css::util::URL& url,
                                  const css::uno::Sequence<css::beans::PropertyValue>&) {
    const Intercepted* const found = find(url);
    if (found != nullptr && found->command) sink_(*found->command);
}

/// Shows commands without effect as disabled.
void CommandInterceptor::addStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                           const css::util::URL& url) {
    const Intercepted* const found = find(url);
    css::frame::FeatureStateEvent state;
    state.Source = static_cast<css::frame::XDispatch*>(this);
    state.FeatureURL = url;
    state.IsEnabled = found != nullptr && found->command.has_value();
    listener->statusChanged(state);
}

CommandInterceptor::ProviderReference CommandInterceptor::getSlaveDispatchProvider() {
    const std::lock_guard lock(mutex_);
    return slave_;
}

void CommandInterceptor::setSlaveDispatchProvider(const ProviderReference& provider) {
    const std::lock_guard lock(mutex_);
    slave_ = provider;
}

CommandInterceptor::ProviderReference CommandInterceptor::getMasterDispatchProvider() {
    const std::lock_guard lock(mutex_);
    return master_;
}

void CommandInterceptor::setMasterDispatchProvider(const ProviderReference& provider) {
    const std::lock_guard lock(mutex_);
    master_ = provider;
}

}  // namespace mergeloom::libreoffice
