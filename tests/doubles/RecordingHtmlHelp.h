#pragma once

#include "ui/help/HtmlHelpPort.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {

/// A help control without windows. It returns the given results and records its calls, one per line.
class RecordingHtmlHelp final : public HtmlHelpPort {
  public:
    WindowHandle HtmlHelp(WindowHandle owner, const std::string& file, HtmlHelpCommand command,
                          const HtmlHelpData& data) override {
        calls.push_back(std::to_string(owner) + " " + file + " " +
                        std::to_string(static_cast<std::uint32_t>(command)) + " " + textOf(data));
        if (command == HtmlHelpCommand::Initialize) return cookie;
        if (command == HtmlHelpCommand::Uninitialize) return 0;
        if (nextWindow != 0) windows.insert(nextWindow);
        return nextWindow;
    }
    bool isWindow(WindowHandle window) override { return windows.contains(window); }
    void closeWindow(WindowHandle window) override {
        calls.push_back("close " + std::to_string(window));
        windows.erase(window);
    }
    void runPendingEvents() override { calls.emplace_back("events"); }

    /// Returns the lines since the last call of this function.
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    WindowHandle cookie = 77;
    WindowHandle nextWindow = 5;
    std::set<WindowHandle> windows;
    std::vector<std::string> calls;

  private:
    static std::string textOf(const HtmlHelpData& data) {
        if (const auto* const topic = std::get_if<std::string>(&data)) return "topic " + *topic;
        if (const auto* const context = std::get_if<HelpContext>(&data)) {
            return "context " + std::to_string(context->number);
        }
        if (const auto* const query = std::get_if<HelpSearchQuery>(&data))
            return "query '" + query->text + "'";
        if (const auto* const given = std::get_if<HelpCookie>(&data)) {
            return "cookie " + std::to_string(given->value);
        }
        return "0";
    }
};

}  // namespace mergeloom
