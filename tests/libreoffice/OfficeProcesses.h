#pragma once

#include "doubles/TemporaryFolder.h"

#include <signal.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

/// Reads and changes the processes of an office without the code under test.
namespace mergeloom {

/// An environment variable that has a value during the life of this object.
class Variable {
  public:
    Variable(std::string name, const std::string& value) : name_(std::move(name)) {
        if (const char* const before = ::getenv(name_.c_str())) before_ = before;
        ::setenv(name_.c_str(), value.c_str(), 1);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() {
        if (before_) {
            ::setenv(name_.c_str(), before_->c_str(), 1);
        } else {
            ::unsetenv(name_.c_str());
        }
    }

  private:
    std::string name_;
    std::optional<std::string> before_;
};

/// Returns the arguments of a process, each with a zero after it; empty if it has ended.
inline std::string commandLine(pid_t process) {
    std::ostringstream text;
    text << std::ifstream("/proc/" + std::to_string(process) + "/cmdline").rdbuf();
    return text.str();
}

/// Returns the processes whose command lines contain the text. Those of processes that have ended are empty.
inline std::vector<pid_t> processesNaming(const std::string& text) {
    std::vector<pid_t> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        const pid_t process = std::stoi(name);
        if (commandLine(process).find(text) != std::string::npos) found.push_back(process);
    }
    return found;
}

/// Returns the state of a thread as proc(5) names it; 0 if it has ended.
inline char stateOf(const std::filesystem::path& thread) {
    std::ostringstream text;
    text << std::ifstream(thread / "stat").rdbuf();
    // The state is the field after the name, which is in parentheses.
    const std::size_t name = text.view().rfind(')');
    return name == std::string_view::npos ? '\0' : text.view().at(name + 2);
}

/// Returns true if no thread of a process runs on after a signal that stops it, which takes effect a little
/// later. A thread that starts a program, as an office does to ask for printers, waits uninterruptibly ('D')
/// for a child that was stopped before its first instruction, and is stopped itself only after that.
inline bool isStopped(pid_t process) {
    std::error_code hasEnded;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task", hasEnded))
        if (const char state = stateOf(thread.path()); state != 'T' && state != 'D' && state != '\0')
            return false;
    return true;
}

template <typename Condition>
bool becomesTrue(const Condition& condition, std::chrono::milliseconds bound = std::chrono::seconds(60)) {
    const auto last = std::chrono::steady_clock::now() + bound;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= last) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

/// A folder of the test that replaces the system's folder for temporary files. It shows the files that an
/// office has not removed.
class OwnTemporaryFolder {
  public:
    [[nodiscard]] std::string operator/(const std::string& name) const { return folder_ / name; }
    /// Returns the entries of the folder.
    [[nodiscard]] std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
            names.push_back(entry.path().filename());
        return names;
    }
    /// Returns the processes of all offices that the test has started.
    [[nodiscard]] std::vector<pid_t> processes() const { return processesNaming(folder_.path()); }
    /// Sends a signal to those of them that run the program.
    void signal(const std::string& program, int number) const {
        for (const pid_t process : processes())
            if (std::filesystem::path(commandLine(process).c_str()).filename() == program)
                ::kill(process, number);
    }
    /// Kills their workers, as the system does if it lacks memory.
    void killWorkers() const { signal("soffice.bin", SIGKILL); }

  private:
    TemporaryFolder folder_;
    Variable variable_{"TMPDIR", folder_.path()};
};

}  // namespace mergeloom
