#include "ui/help/clsHtmlHelp.h"

#include <algorithm>
#include <utility>

namespace mergeloom {

clsHtmlHelp::clsHtmlHelp(HtmlHelpPort& port)
    : port_(port), cookie_{port.HtmlHelp(0, {}, HtmlHelpCommand::Initialize, {})} {}

clsHtmlHelp::~clsHtmlHelp() {
    Terminate();
}

void clsHtmlHelp::OpenTOC(WindowHandle owner) {
    open(owner, HtmlHelpCommand::DisplayContents, {});
}

void clsHtmlHelp::OpenTopic(WindowHandle owner, const std::string& topic) {
    open(owner, HtmlHelpCommand::DisplayTopic, topic);
}

void clsHtmlHelp::OpenContext(WindowHandle owner, std::uint32_t context) {
    if (context == 0) return OpenTOC(owner);
    open(owner, HtmlHelpCommand::HelpContext, HelpContext{context});
}

void clsHtmlHelp::OpenIndex(WindowHandle owner) {
    open(owner, HtmlHelpCommand::DisplayIndex, {});
}

void clsHtmlHelp::OpenSearch(WindowHandle owner, const std::string& query) {
    open(owner, HtmlHelpCommand::DisplaySearch, HelpSearchQuery{query});
}

void clsHtmlHelp::open(WindowHandle owner, HtmlHelpCommand command, const HtmlHelpData& data) {
    if (isShutDown_) return;
    const WindowHandle window = port_.HtmlHelp(owner, file_, command, data);
    if (window == 0) return;
    const std::string key = "_" + std::to_string(window);
    if (std::ranges::find(windows_, key) == windows_.end()) windows_.push_back(key);
}

void clsHtmlHelp::CloseHelpWindows() {
    // Events run between two windows and may close or open others meanwhile.
    for (const std::string& key : std::exchange(windows_, {})) {
        const WindowHandle window = std::stoull(key.substr(1));
        if (!port_.isWindow(window)) continue;
        port_.closeWindow(window);
        port_.runPendingEvents();
    }
}

void clsHtmlHelp::Terminate() {
    if (isShutDown_) return;
    CloseAll();
    port_.HtmlHelp(0, {}, HtmlHelpCommand::Uninitialize, cookie_);
    isShutDown_ = true;
}

}  // namespace mergeloom
