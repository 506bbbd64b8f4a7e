#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace mergeloom {

/// The window system's number of a window; 0 is none.
using WindowHandle = std::uint64_t;

/// The requests to a help control, with its own numbers for them.
enum class HtmlHelpCommand : std::uint32_t {
    DisplayTopic = 0,
    DisplayContents = 1,
    DisplayIndex = 2,
    DisplaySearch = 3,
    HelpContext = 15,
    Initialize = 28,
    Uninitialize = 29
};

struct HelpContext {
    std::uint32_t number = 0;
};

struct HelpSearchQuery {
    std::string text;  ///< empty: no search yet
};

/// The result of the initialisation.
struct HelpCookie {
    WindowHandle value = 0;
};

/// The data of a command: a topic's path for DisplayTopic, nothing or the value of the command's own type.
using HtmlHelpData = std::variant<std::monostate, std::string, HelpContext, HelpSearchQuery, HelpCookie>;

/// A control that shows help files in windows of its own.
class HtmlHelpPort {
  public:
    HtmlHelpPort() = default;
    HtmlHelpPort(const HtmlHelpPort&) = delete;
    HtmlHelpPort& operator=(const HtmlHelpPort&) = delete;
    virtual ~HtmlHelpPort() = default;

    /// Returns the help window, 0 when none is shown; for Initialize the cookie. A message names what cannot
    /// be shown.
    virtual WindowHandle HtmlHelp(WindowHandle owner, const std::string& file, HtmlHelpCommand command,
                                  const HtmlHelpData& data) = 0;
    virtual bool isWindow(WindowHandle window) = 0;
    /// Asks the window to close.
    virtual void closeWindow(WindowHandle window) = 0;
    virtual void runPendingEvents() = 0;
};

}  // namespace mergeloom
