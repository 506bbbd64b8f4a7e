#include "ui/help/HelpWindows.h"

#include "base/AutomationError.h"
#include "ui/help/HelpFile.h"
#include "ui/help/HelpWindow.h"

#include <QCoreApplication>
#include <algorithm>
#include <memory>

namespace mergeloom {

namespace {

/// The cookie of the initialisation, which has nothing to prepare; 0 would mean that it failed.
constexpr WindowHandle kCookie = 1;

QString topicOf(const HelpFile& file, const HtmlHelpData& data) {
    if (const auto* const topic = std::get_if<std::string>(&data)) return QString::fromStdString(*topic);
    const auto* const context = std::get_if<HelpContext>(&data);
    const auto found = context == nullptr ? file.contexts().end() : file.contexts().find(context->number);
    return found == file.contexts().end() ? file.defaultTopic() : found->second;
}

void perform(HelpWindow& window, HtmlHelpCommand command, const HtmlHelpData& data) {
    if (command == HtmlHelpCommand::DisplayContents) window.showContents();
    if (command == HtmlHelpCommand::DisplayIndex) window.showIndex();
    if (const auto* const query = std::get_if<HelpSearchQuery>(&data)) {
        window.showSearch(QString::fromStdString(query->text));
    }
    if (command == HtmlHelpCommand::DisplayTopic || command == HtmlHelpCommand::HelpContext) {
        window.showTopic(topicOf(window.file(), data));
    }
}

}  // namespace

WindowHandle HelpWindows::HtmlHelp(WindowHandle owner, const std::string& file, HtmlHelpCommand command,
                                   const HtmlHelpData& data) {
    if (command == HtmlHelpCommand::Initialize) return kCookie;
    if (command == HtmlHelpCommand::Uninitialize) return 0;
    try {
        HelpWindow& window = windowFor(owner, file);
        perform(window, command, data);
        window.show();
        window.raise();
        window.activateWindow();
        return window.winId();
    } catch (const AutomationError& error) {
        messages_.show({error.description(), MessageIcon::Exclamation, MessageButtons::Ok});
        return 0;
    }
}

/// Returns the window for the owner and the file. The new window is in front of its owner and stays usable
/// while the owner is modal.
HelpWindow& HelpWindows::windowFor(WindowHandle owner, const std::string& file) {
    std::erase_if(entries_,
                  [](const Entry& entry) { return entry.window.isNull() || entry.window->isHidden(); });
    const auto found = std::ranges::find_if(
        entries_, [&](const Entry& entry) { return entry.owner == owner && entry.file == file; });
    if (found != entries_.end()) return *found->window;
    auto* const window = new HelpWindow(std::make_shared<HelpFile>(file), QWidget::find(owner));
    entries_.push_back({owner, file, window});
    return *window;
}

HelpWindow* HelpWindows::find(WindowHandle window) const {
    const auto found = std::ranges::find_if(entries_, [&](const Entry& entry) {
        return !entry.window.isNull() && !entry.window->isHidden() && entry.window->winId() == window;
    });
    return found == entries_.end() ? nullptr : found->window.data();
}

bool HelpWindows::isWindow(WindowHandle window) {
    return find(window) != nullptr;
}

void HelpWindows::closeWindow(WindowHandle window) {
    if (HelpWindow* const found = find(window)) found->close();
}

void HelpWindows::runPendingEvents() {
    QCoreApplication::processEvents();
}

}  // namespace mergeloom
