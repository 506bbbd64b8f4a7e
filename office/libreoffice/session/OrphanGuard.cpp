#include "office/libreoffice/session/OrphanGuard.h"

namespace mergeloom::libreoffice {

namespace {

/// A line on the input is the dismissal; the input's end without one is the owner's death.
constexpr const char* kScript =
    "read -r line && exit 0\n"
    "kill -s KILL -- \"-$1\"\n"
    "shift\n"
    "rm -rf -- \"$@\"\n";

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

OrphanGuard::~OrphanGuard() {
    leash_.send("done\n");
    [[maybe_unused]] const bool hasEnded = process_.waitForEnd(kBoundOfDismissal);
}

}  // namespace mergeloom::libreoffice
