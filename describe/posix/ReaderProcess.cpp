#include "describe/ReaderProcess.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/SystemError.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <system_error>
#include <utility>

namespace mergeloom::describe {

namespace {

using FileActions = std::unique_ptr<posix_spawn_file_actions_t, int (*)(posix_spawn_file_actions_t*)>;
using Attributes = std::unique_ptr<posix_spawnattr_t, int (*)(posix_spawnattr_t*)>;

[[noreturn]] void raiseNotStarted(const std::string& program, int error) {
    throw AutomationError(kNotAvailable, "The program '" + program + "' cannot be started: " +
                                             std::generic_category().message(error) + ".");
}

/// A pipe whose ends are closed in programs that are started.
class Pipe {
  public:
    explicit Pipe(const std::string& program) {
        if (::pipe2(ends_.data(), O_CLOEXEC) != 0) raiseNotStarted(program, errno);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        ::close(ends_[1]);
        if (ends_[0] >= 0) ::close(ends_[0]);
    }

    [[nodiscard]] int writingEnd() const { return ends_[1]; }
    int releaseReadingEnd() { return std::exchange(ends_[0], -1); }

  private:
    std::array<int, 2> ends_{-1, -1};
};

void start(const std::string& program, const std::vector<std::string>& arguments, int output,
           pid_t& process) {
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    const FileActions ownedActions(&actions, posix_spawn_file_actions_destroy);
    posix_spawn_file_actions_adddup2(&actions, output, kReaderDescriptor);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);

    // A signal from the terminal must reach this process only, which ends the other one.
    posix_spawnattr_t attributes{};
    posix_spawnattr_init(&attributes);
    const Attributes ownedAttributes(&attributes, posix_spawnattr_destroy);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);

    std::vector<std::string> texts{program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> values;
    std::ranges::transform(texts, std::back_inserter(values), [](std::string& text) { return text.data(); });
    values.push_back(nullptr);
    const int error = ::posix_spawn(&process, program.c_str(), &actions, &attributes, values.data(), environ);
    if (error != 0) raiseNotStarted(program, error);
}

}  // namespace

ReaderProcess::ReaderProcess(const std::string& program, const std::vector<std::string>& arguments)
    : parts_(-1) {
    const std::string path = installedFile(program);
    if (path.empty()) raiseNotStarted(program, ENOENT);
    Pipe pipe(path);
    start(path, arguments, pipe.writingEnd(), process_);
    descriptor_ = pipe.releaseReadingEnd();
    parts_ = PipeReader(descriptor_);
}

ReaderProcess::~ReaderProcess() {
    ::close(descriptor_);
    ::kill(process_, SIGKILL);
    repeatInterrupted([this] { return ::waitpid(process_, nullptr, 0); });
}

std::optional<Message> ReaderProcess::next() {
    const Message message = parts_.message();
    if (message == Message::End) return std::nullopt;
    if (message == Message::Failure) throw AutomationError(kFileCouldNotBeRead, parts_.text());
    return message;
}

}  // namespace mergeloom::describe
