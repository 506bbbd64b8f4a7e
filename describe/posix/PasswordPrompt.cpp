#include "describe/PasswordPrompt.h"

#include "base/posix/InputWait.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <string_view>

namespace mergeloom::describe {

namespace {

constexpr std::string_view kQuestion = "Password: ";

/// The terminal of the process, on which typed characters are not shown.
class SilentTerminal {
  public:
    SilentTerminal()
        : descriptor_(::isatty(STDIN_FILENO) != 0 ? ::open("/dev/tty", O_RDWR | O_CLOEXEC) : -1) {
        if (descriptor_ < 0 || ::tcgetattr(descriptor_, &before_) != 0) return;
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        isSilent_ = ::tcsetattr(descriptor_, TCSAFLUSH, &silent) == 0;
    }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;
    ~SilentTerminal() {
        if (isSilent_) ::tcsetattr(descriptor_, TCSAFLUSH, &before_);
        if (descriptor_ >= 0) ::close(descriptor_);
    }

    [[nodiscard]] bool isSilent() const { return isSilent_; }
    void write(std::string_view text) const {
        if (::write(descriptor_, text.data(), text.size()) < 0) return;
    }
    /// Returns false at the end of the input and after a signal.
    bool read(char& letter) const {
        return waitForInput(descriptor_) && ::read(descriptor_, &letter, 1) == 1;
    }

  private:
    int descriptor_;
    termios before_{};
    bool isSilent_ = false;
};

}  // namespace

std::optional<std::string> askPasswordOnTerminal() {
    const SilentTerminal terminal;
    if (!terminal.isSilent()) return std::nullopt;
    terminal.write(kQuestion);
    std::string password;
    char letter = 0;
    bool isComplete = false;
    while (!isComplete && terminal.read(letter)) {
        isComplete = letter == '\n';
        if (!isComplete) password += letter;
    }
    terminal.write("\n");
    return isComplete ? std::optional(password) : std::nullopt;
}

}  // namespace mergeloom::describe
