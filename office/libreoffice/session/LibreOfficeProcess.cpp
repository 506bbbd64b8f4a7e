#include "office/libreoffice/session/LibreOfficeProcess.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/libreoffice/session/OfficeProfile.h"
#include "office/libreoffice/session/UnoText.h"

#include <rtl/digest.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace mergeloom::libreoffice {

namespace {

/// Returns the name that the office gives the pipe: the digest of the URL in UTF-16, without the zero of each
/// byte below 16. The URL is plain ASCII.
std::string nameOfProfile(const std::string& url) {
    std::string units;
    for (const char unit : url)
        units += {unit, '\0'};
    std::array<sal_uInt8, RTL_DIGEST_LENGTH_MD5> digest{};
    rtl_digest_MD5(units.data(), static_cast<sal_uInt32>(units.size()), digest.data(), digest.size());
    std::string name = "SingleOfficeIPC_";
    constexpr const char* digits = "0123456789abcdef";
    for (const sal_uInt8 byte : digest) {
        if (byte >= 16) name += digits[byte / 16];
        name += digits[byte % 16];
    }
    return name;
}

constexpr const char* kVariable = "MERGELOOM_SOFFICE";
constexpr std::array kUsualPlaces{"/usr/lib/libreoffice/program/soffice",
                                  "/usr/lib64/libreoffice/program/soffice"};

bool isProgram(const std::string& path) {
    return fileExists(path) && ::access(path.c_str(), X_OK) == 0;
}

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string findInPath() {
    std::istringstream folders(variable("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');) {
        std::string path = joinPath(folder, "soffice");
        if (isProgram(path)) return path;
    }
    return {};
}

constexpr std::chrono::seconds kQuitTimeout{5};
constexpr std::chrono::seconds kTerminateTimeout{3};
constexpr std::chrono::seconds kKillTimeout{5};
constexpr std::size_t kLastLines = 3;
constexpr const char* kProfile = "profile";

/// Starts the program only after the line that its cleanup process is running; the input's end instead ends
/// it. The office leaves temporary folders even when it ends well, so they are made in a folder that is
/// removed with the rest.
constexpr const char* kStartScript =
    "read -r line && TMPDIR=$1 && export TMPDIR && shift && exec \"$@\" </dev/null";

std::vector<std::string> leftovers(const std::string& folder, const std::vector<std::string>& sockets) {
    std::vector<std::string> files = sockets;
    files.push_back(folder);
    return files;
}

}  // namespace

std::vector<std::string> socketFiles(const std::string& pipeName, const std::string& profileUrl) {
    const std::string prefix = "/OSL_PIPE_" + std::to_string(::getuid()) + "_";
    const std::string names[] = {prefix + pipeName, prefix + nameOfProfile(profileUrl)};
    std::vector<std::string> files;
    // The office uses the second folder only when the first cannot be written.
    for (const std::string folder : {"/tmp", "/var/tmp"})
        for (const std::string& name : names)
            files.push_back(folder + name);
    return files;
}

std::string findOfficeProgram() {
    std::string chosen = variable(kVariable);
    if (!chosen.empty()) {
        if (isProgram(chosen)) return chosen;
        throw AutomationError(kNotAvailable, std::string("The environment variable ") + kVariable +
                                                 " names '" + chosen + "', which is no program.");
    }
    std::string found = findInPath();
    if (!found.empty()) return found;
    for (const char* const place : kUsualPlaces)
        if (isProgram(place)) return place;
    throw AutomationError(kNotAvailable,
                          "LibreOffice was not found. Install it (on Debian: libreoffice-writer and "
                          "libreoffice-calc), or let the environment variable MERGELOOM_SOFFICE name its "
                          "program 'soffice'.");
}

LibreOfficeProcess::LibreOfficeProcess(const std::string& program, OfficeMode mode, const HostLook& look)
    : pipeName_(fileNameOnly(folder_.path()) + "-" + std::to_string(::getpid())) {
    if (mode == OfficeMode::Shown) userProfile_.emplace();
    sockets_ = socketFiles(pipeName_, profileUrl());
    makeOfficeProfile(profile(), mode, look);
    std::filesystem::create_directory(workFolder());
    std::filesystem::create_directory(temporaryFolder());
    process_.emplace(command(program, mode, look), start_.farEnd(), logPath());
    if (userProfile_) userProfile_->endSharing();
    start_.closeFarEnd();
    cleanup_.emplace(process_->id(), leftovers(folder_.path(), sockets_), logPath());
    start_.send("go\n");
}

LibreOfficeProcess::~LibreOfficeProcess() {
    stop();
    std::error_code error;
    for (const std::string& socket : sockets_)
        std::filesystem::remove(socket, error);
}

std::vector<std::string> LibreOfficeProcess::command(const std::string& program, OfficeMode mode,
                                                     const HostLook& look) const {
    std::vector<std::string> words{"/bin/sh", "-c", kStartScript, "start", temporaryFolder()};
    // Of the toolkits that it can draw with, only this one works inside a window of another program.
    if (mode == OfficeMode::Shown) words.insert(words.end(), {"env", "SAL_USE_VCLPLUGIN=gen"});
    if (mode == OfficeMode::Shown && look.dotsPerInch > 0)
        words.push_back("SAL_FORCEDPI=" + std::to_string(look.dotsPerInch));
    words.insert(words.end(), {program, "-env:UserInstallation=" + profileUrl(), "--norestore", "--nologo",
                               "--nodefault", "--nofirststartwizard"});
    if (mode == OfficeMode::Hidden) words.emplace_back("--headless");
    words.push_back("--accept=pipe,name=" + pipeName_ + ";urp");
    return words;
}

std::string LibreOfficeProcess::workFolder() const {
    return joinPath(folder_.path(), "work");
}

std::string LibreOfficeProcess::temporaryFolder() const {
    return joinPath(folder_.path(), "temporary");
}

std::string LibreOfficeProcess::logPath() const {
    return joinPath(folder_.path(), "log");
}

std::string LibreOfficeProcess::profile() const {
    const bool isKept = userProfile_ && !userProfile_->path().empty();
    return isKept ? userProfile_->path() : joinPath(folder_.path(), kProfile);
}

std::string LibreOfficeProcess::profileUrl() const {
    return fileUrl(profile());
}

void LibreOfficeProcess::kill() const {
    process_->signal(SIGKILL);
}

void LibreOfficeProcess::end() const {
    if (!process_->waitForEnd(kQuitTimeout)) stop();
}

void LibreOfficeProcess::stop() const {
    process_->signal(SIGTERM);
    if (process_->waitForEnd(kTerminateTimeout)) return;
    process_->signal(SIGKILL);
    [[maybe_unused]] const bool hasEnded = process_->waitForEnd(kKillTimeout);
}

std::string LibreOfficeProcess::logTail() const {
    std::ifstream log(logPath());
    std::deque<std::string> lines;
    for (std::string line; std::getline(log, line);) {
        if (!line.empty()) lines.push_back(line);
        if (lines.size() > kLastLines) lines.pop_front();
    }
    std::string words;
    for (const std::string& line : lines)
        words += (words.empty() ? "" : " ") + line;
    return words;
}

}  // namespace mergeloom::libreoffice
