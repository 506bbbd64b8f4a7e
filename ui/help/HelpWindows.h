#pragma once

#include "base/Messages.h"
#include "ui/help/HtmlHelpPort.h"

#include <QPointer>
#include <string>
#include <vector>

namespace mergeloom {

class HelpFile;
class HelpWindow;

/// Shows help files in windows of the program: one window for each owner and file, which further calls use
/// again. Belongs to the thread of the windows.
class HelpWindows final : public HtmlHelpPort {
  public:
    /// The messages name a help file that cannot be read.
    explicit HelpWindows(Messages& messages) : messages_(messages) {}

    WindowHandle HtmlHelp(WindowHandle owner, const std::string& file, HtmlHelpCommand command,
                          const HtmlHelpData& data) override;
    bool isWindow(WindowHandle window) override;
    void closeWindow(WindowHandle window) override;
    void runPendingEvents() override;

  private:
    struct Entry {
        WindowHandle owner;
        std::string file;
        QPointer<HelpWindow> window;
    };

    HelpWindow& windowFor(WindowHandle owner, const std::string& file);
    [[nodiscard]] HelpWindow* find(WindowHandle window) const;

    Messages& messages_;
    std::vector<Entry> entries_;
};

}  // namespace mergeloom
