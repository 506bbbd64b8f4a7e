#pragma once

#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace mergeloom {

/// A program that runs until this object is destroyed or this process ends.
class RunningProgram {
  public:
    RunningProgram() = default;
    /// The descriptor is also open in the program.
    explicit RunningProgram(std::vector<std::string> command, int kept = -1) {
        command.insert(command.begin(), {"setpriv", "--pdeathsig", "TERM"});
        std::vector<char*> arguments;
        arguments.reserve(command.size() + 1);
        for (std::string& word : command)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        if (kept >= 0) posix_spawn_file_actions_adddup2(&files, kept, kept);
        if (posix_spawnp(&process_, arguments[0], &files, nullptr, arguments.data(), environ) != 0)
            process_ = 0;
        posix_spawn_file_actions_destroy(&files);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram() {
        if (process_ == 0) return;
        ::kill(process_, SIGTERM);
        ::waitpid(process_, nullptr, 0);
    }

  private:
    pid_t process_ = 0;
};

/// A separate screen for the test, with a window manager where one is installed.
class VirtualScreen {
  public:
    static constexpr int kWidth = 1280;
    static constexpr int kHeight = 1024;

  private:
    /// The server chooses a free number and writes it.
    struct Channel {
        Channel() {
            if (::pipe(ends) != 0) throw std::runtime_error("no channel");
        }
        std::string line() const {
            std::string text;
            ::close(ends[1]);
            for (char letter = 0; ::read(ends[0], &letter, 1) == 1 && letter != '\n';)
                text += letter;
            ::close(ends[0]);
            return text;
        }
        int ends[2]{};
    };

    std::string started() {
        const std::string number = channel_.line();
        if (number.empty()) throw std::runtime_error("Xvfb does not start");
        ::setenv("DISPLAY", (":" + number).c_str(), 1);
        return number;
    }

    Channel channel_;
    RunningProgram server_{{"Xvfb", "-displayfd", std::to_string(channel_.ends[1]), "-nolisten", "tcp",
                            "-screen", "0", std::to_string(kWidth) + "x" + std::to_string(kHeight) + "x24"},
                           channel_.ends[1]};
    std::string number_ = started();
    RunningProgram manager_{{"openbox"}};
};

}  // namespace mergeloom
