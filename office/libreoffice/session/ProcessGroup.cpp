#include "office/libreoffice/session/ProcessGroup.h"

#include "base/AutomationError.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <system_error>
#include <thread>

namespace mergeloom::libreoffice {

namespace {

constexpr std::chrono::milliseconds kPause{5};
constexpr std::chrono::seconds kDestructionTimeout{5};
constexpr mode_t kPrivateMode = 0600;

/// The attributes with which the first process starts: in a session of its own, with the default handling of
/// signals.
class Attributes {
  public:
    Attributes() {
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setflags(&attributes_,
                                 POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { posix_spawnattr_destroy(&attributes_); }

    [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

  private:
    posix_spawnattr_t attributes_{};
};

/// The files that the first process reads and writes.
class Streams {
  public:
    Streams(int input, const std::string& log) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
        posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, log.c_str(), O_WRONLY | O_CREAT | O_APPEND,
                                         kPrivateMode);
        posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
    }
    Streams(const Streams&) = delete;
    Streams& operator=(const Streams&) = delete;
    ~Streams() { posix_spawn_file_actions_destroy(&actions_); }

    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

/// Returns true if a process of the system runs in the group. One that has ended and was not yet waited for
/// does not run.
bool runsInGroup(const std::string& process, pid_t group) {
    std::ifstream file("/proc/" + process + "/stat");
    std::string text;
    std::getline(file, text, '\0');
    // The name before the other fields may have any characters, so the last parenthesis counts.
    const std::size_t name = text.rfind(')');
    if (name == std::string::npos || text.size() < name + 4) return false;
    const char state = text[name + 2];
    char* rest = nullptr;
    std::strtol(text.c_str() + name + 3, &rest, 10);  // the parent
    return std::strtol(rest, nullptr, 10) == group && state != 'Z' && state != 'X';
}

}  // namespace

void raiseNotStarted(const std::string& reason) {
    throw AutomationError(kNotAvailable, "LibreOffice could not be started: " + reason + ".");
}

ProcessGroup::ProcessGroup(const std::vector<std::string>& command, int input, const std::string& log) {
    std::vector<std::string> texts = command;
    std::vector<char*> arguments;
    arguments.reserve(texts.size() + 1);
    for (std::string& text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    const int error = ::posix_spawnp(&id_, arguments[0], Streams(input, log).get(), Attributes().get(),
                                     arguments.data(), environ);
    if (error == 0) return;
    throw AutomationError(kNotAvailable, "The program '" + command[0] + "' could not be started: " +
                                             std::generic_category().message(error) + ".");
}

ProcessGroup::~ProcessGroup() {
    signal(SIGKILL);
    // Do not wait for a process that the system does not let end.
    if (waitForEnd(kDestructionTimeout)) ::waitpid(id_, nullptr, 0);
}

bool ProcessGroup::isRunning() const {
    siginfo_t end{};
    // Only look at the end: waiting for it would free the number.
    const int result = ::waitid(P_PID, static_cast<id_t>(id_), &end, WEXITED | WNOHANG | WNOWAIT);
    return result == 0 && end.si_pid == 0;
}

std::vector<pid_t> ProcessGroup::members() const {
    std::vector<pid_t> found;
    const std::unique_ptr<DIR, int (*)(DIR*)> processes(::opendir("/proc"), ::closedir);
    if (processes == nullptr) return found;
    while (const dirent* const entry = ::readdir(processes.get())) {
        const std::string name = entry->d_name;
        const bool isProcess = name[0] >= '1' && name[0] <= '9';
        if (isProcess && runsInGroup(name, id_)) found.push_back(std::stoi(name));
    }
    return found;
}

bool ProcessGroup::waitForEnd(std::chrono::milliseconds bound) const {
    const auto last = std::chrono::steady_clock::now() + bound;
    while (isRunning() || !members().empty()) {
        if (std::chrono::steady_clock::now() >= last) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

void ProcessGroup::signal(int number) const {
    ::kill(-id_, number);
}

}  // namespace mergeloom::libreoffice
