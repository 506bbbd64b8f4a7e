#include "base/StopSignal.h"
#include "describe/PasswordPrompt.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <string>
#include <string_view>

namespace mergeloom::describe {
namespace {

constexpr int kHasPassword = 10;
constexpr int kHasNone = 11;
constexpr int kHidesTyping = 12;

bool showsTypedCharacters() {
    termios state{};
    ::tcgetattr(STDIN_FILENO, &state);
    return (state.c_lflag & ECHO) != 0;
}

/// Asks for a password and ends with the result and with the state of the terminal.
[[noreturn]] void askAndEnd() {
    // A process that was started in the background ignores the signal, which StopSignal respects.
    std::signal(SIGINT, SIG_DFL);
    const StopSignal stop;
    const std::optional<std::string> password = askPasswordOnTerminal();
    if (!showsTypedCharacters()) ::_exit(kHidesTyping);
    ::_exit(password == "gull" ? kHasPassword : kHasNone);
}

/// Types the keys on the terminal of a process at its question. Returns the exit status of the process, or
/// the negative number of the signal that ended it.
int statusAfter(std::string_view keys) {
    int terminal = -1;
    const pid_t process = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    if (process == 0) askAndEnd();
    std::string shown;
    char letter = 0;
    while (shown.find("Password: ") == std::string::npos && ::read(terminal, &letter, 1) == 1)
        shown += letter;
    EXPECT_EQ(::write(terminal, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    while (::read(terminal, &letter, 1) == 1)
        shown += letter;
    int status = 0;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    ::close(terminal);
    EXPECT_EQ(shown.find("gull"), std::string::npos) << shown;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST(PasswordPrompt, RestoresTheTerminal) {
    EXPECT_EQ(statusAfter("gull\n"), kHasPassword);
    EXPECT_EQ(statusAfter("\n"), kHasNone);
    EXPECT_EQ(statusAfter("gul\x04\x04"), kHasNone) << "the end of the input";
    EXPECT_EQ(statusAfter("gul\x03"), kHasNone) << "Ctrl+C";
}

}  // namespace
}  // namespace mergeloom::describe
