#pragma once

#include "ui/help/HtmlHelpPort.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom {

/// Opens a help file in several ways and remembers the windows, so that they can be closed together.
class clsHtmlHelp {
  public:
    /// The port has to outlive it.
    explicit clsHtmlHelp(HtmlHelpPort& port);
    clsHtmlHelp(const clsHtmlHelp&) = delete;
    clsHtmlHelp& operator=(const clsHtmlHelp&) = delete;
    ~clsHtmlHelp();

    void SetFile(const std::string& path) { file_ = path; }

    void OpenTOC(WindowHandle owner);
    void OpenTopic(WindowHandle owner, const std::string& topic);
    /// Opens the help for the context; 0 is no context and opens the contents.
    void OpenContext(WindowHandle owner, std::uint32_t context);
    void OpenIndex(WindowHandle owner);
    void OpenSearch(WindowHandle owner, const std::string& query = {});

    /// Closes the remembered windows that still exist and forgets all of them.
    void CloseHelpWindows();
    void CloseAll() { CloseHelpWindows(); }
    /// Closes all windows and releases the control. After that nothing is opened; further calls do nothing.
    void Terminate();

  private:
    void open(WindowHandle owner, HtmlHelpCommand command, const HtmlHelpData& data);

    HtmlHelpPort& port_;
    HelpCookie cookie_;
    std::string file_;
    std::vector<std::string> windows_;  // "_" and the window's handle of each
    bool isShutDown_ = false;
};

}  // namespace mergeloom
