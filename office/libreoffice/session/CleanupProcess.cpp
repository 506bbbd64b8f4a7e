#include "office/libreoffice/session/CleanupProcess.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace mergeloom::libreoffice {

namespace {

/// Reads commands from its input: "done" ends the script; the input's end without it means that the owner has
/// died. "file" and "fragments" name files to remove, "keep" files to keep, "forget" cancels these commands,
/// and "sweep" removes at once and sends an empty line back. A fragment has the name that the office makes:
/// the given beginning, digits and small letters up to ".tmp". A longer number that is that of a running
/// process belongs to another office.
constexpr const char* kScript =
    "LC_ALL=C\n"
    "newline='\n'\n"
    "forget() { files= beginnings= kept=$newline; }\n"
    "is_fragment() {\n"
    "  [ -f \"$2\" ] && [ ! -h \"$2\" ] || return 1\n"
    "  case $kept in *\"$newline$2$newline\"*) return 1 ;; esac\n"
    "  number=${1##*/lu} token=${2#\"$1\"} token=${token%.tmp}\n"
    "  case $token in '' | *[!0-9a-z]*) return 1 ;; esac\n"
    "  while digit=${token%\"${token#?}\"}; do\n"
    "    case $digit in [0-9]) ;; *) return 0 ;; esac\n"
    "    number=$number$digit token=${token#?}\n"
    "    [ ! -e \"/proc/$number\" ] || return 1\n"
    "  done\n"
    "}\n"
    "sweep() {\n"
    "  printf %s \"$files\" | while IFS= read -r file; do rm -f -- \"$file\"; done\n"
    "  printf %s \"$beginnings\" | while IFS= read -r beginning; do\n"
    "    for file in \"$beginning\"*.tmp; do\n"
    "      if is_fragment \"$beginning\" \"$file\"; then rm -f -- \"$file\"; fi\n"
    "    done\n"
    "  done\n"
    "}\n"
    "forget\n"
    "while IFS= read -r line; do\n"
    "  path=${line#* }\n"
    "  case $line in\n"
    "    done) exit 0 ;;\n"
    "    forget) forget ;;\n"
    "    sweep) sweep; echo >&0 ;;\n"
    "    'file '*) files=$files$path$newline ;;\n"
    "    'fragments '*) beginnings=$beginnings$path$newline ;;\n"
    "    'keep '*) kept=$kept$path$newline ;;\n"
    "  esac\n"
    "done\n"
    "kill -s KILL -- \"-$1\"\n"
    "shift\n"
    "rm -rf -- \"$@\"\n"
    "sweep\n";

std::vector<std::string> commandOf(pid_t group, const std::vector<std::string>& leftovers) {
    std::vector<std::string> command{"/bin/sh", "-c", kScript, "cleanup", std::to_string(group)};
    command.insert(command.end(), leftovers.begin(), leftovers.end());
    return command;
}

constexpr std::chrono::seconds kDismissTimeout{1};
constexpr std::chrono::seconds kSweepTimeout{10};

}  // namespace

LifelinePipe::LifelinePipe() {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_) == 0) return;
    raiseNotStarted(std::generic_category().message(errno));
}

LifelinePipe::~LifelinePipe() {
    closeFarEnd();
    ::close(ends_[0]);
}

void LifelinePipe::closeFarEnd() {
    if (ends_[1] >= 0) ::close(ends_[1]);
    ends_[1] = -1;
}

void LifelinePipe::send(std::string_view line) const {
    // A plain write to a process that is gone would end this one.
    [[maybe_unused]] const ssize_t sent = ::send(ends_[0], line.data(), line.size(), MSG_NOSIGNAL);
}

void LifelinePipe::waitForLine(std::chrono::milliseconds bound) const {
    const auto last = std::chrono::steady_clock::now() + bound;
    for (char letter = 0; letter != '\n';) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(last - std::chrono::steady_clock::now());
        pollfd source{ends_[0], POLLIN, 0};
        const int ready = left.count() > 0 ? ::poll(&source, 1, static_cast<int>(left.count())) : 0;
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0 || ::recv(ends_[0], &letter, 1, 0) <= 0) return;
    }
}

CleanupProcess::CleanupProcess(pid_t group, const std::vector<std::string>& leftovers, const std::string& log)
    : process_(commandOf(group, leftovers), lifeline_.farEnd(), log) {
    lifeline_.closeFarEnd();
}

void CleanupProcess::setPartialFiles(const PartialFiles& partial) const {
    std::string lines = "forget\n";
    const auto add = [&](const char* command, const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            // A command is one line.
            if (path.find('\n') == std::string::npos) lines += command + (" " + path) + "\n";
        }
    };
    add("file", partial.files);
    add("fragments", partial.beginnings);
    add("keep", partial.kept);
    lifeline_.send(lines);
}

void CleanupProcess::removePartialFiles() const {
    lifeline_.send("sweep\n");
    lifeline_.waitForLine(kSweepTimeout);
}

CleanupProcess::~CleanupProcess() {
    lifeline_.send("done\n");
    [[maybe_unused]] const bool hasEnded = process_.waitForEnd(kDismissTimeout);
}

}  // namespace mergeloom::libreoffice
