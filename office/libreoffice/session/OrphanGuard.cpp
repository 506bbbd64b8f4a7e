#include "office/libreoffice/session/OrphanGuard.h"

namespace mergeloom::libreoffice {

namespace {

/// The line "done" on the input is the dismissal; the input's end without it is the owner's death. Other
/// lines tell how the paths of further files begin, and "forget" takes them back.
constexpr const char* kScript =
    "more=\n"
    "while IFS= read -r line; do\n"
    "  case $line in\n"
    "    done) exit 0 ;;\n"
    "    forget) more= ;;\n"
    "    *) more=\"$more$line\n\" ;;\n"
    "  esac\n"
    "done\n"
    "kill -s KILL -- \"-$1\"\n"
    "shift\n"
    "rm -rf -- \"$@\"\n"
    "printf %s \"$more\" | while IFS= read -r beginning; do rm -f -- \"$beginning\"*; done\n";

std::vector<std::string> commandOf(pid_t group, const std::vector<std::string>& leftovers) {
    std::vector<std::string> command{"/bin/sh", "-c", kScript, "guard", std::to_string(group)};
    command.insert(command.end(), leftovers.begin(), leftovers.end());
    return command;
}

constexpr std::chrono::seconds kBoundOfDismissal{1};

}  // namespace

OrphanGuard::OrphanGuard(pid_t group, const std::vector<std::string>& leftovers, const std::string& log)
    : process_(commandOf(group, leftovers), leash_.farEnd(), log) {
    leash_.handOver();
}

void OrphanGuard::lookAfter(const std::vector<std::string>& beginnings) const {
    std::string lines = "forget\n";
    for (const std::string& beginning : beginnings) {
        // A line cannot hold such a path.
        if (beginning.find('\n') == std::string::npos) lines += beginning + "\n";
    }
    leash_.send(lines);
}

OrphanGuard::~OrphanGuard() {
    leash_.send("done\n");
    [[maybe_unused]] const bool hasEnded = process_.waitForEnd(kBoundOfDismissal);
}

}  // namespace mergeloom::libreoffice
