#include "office/libreoffice/session/LibreOfficeProcess.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/libreoffice/session/FileUrl.h"
#include "office/libreoffice/session/OfficeProfile.h"
#include "office/libreoffice/session/SocketFiles.h"

#include <signal.h>
#include <unistd.h>

#include <deque>
#include <filesystem>
#include <fstream>

namespace mergeloom::libreoffice {

namespace {

constexpr std::chrono::seconds kBoundOfPoliteEnd{5};
constexpr std::chrono::seconds kBoundOfTermination{3};
constexpr std::chrono::seconds kBoundOfKill{5};
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

LibreOfficeProcess::LibreOfficeProcess(const std::string& program, OfficeMode mode)
    : pipeName_(fileNameOnly(folder_.path()) + "-" + std::to_string(::getpid())),
      sockets_(socketFiles(pipeName_, profileUrl())) {
    makeOfficeProfile(joinPath(folder_.path(), kProfile), mode);
    std::filesystem::create_directory(workFolder());
    std::filesystem::create_directory(temporaryFolder());
    process_.emplace(command(program, mode), start_.farEnd(), logPath());
    start_.handOver();
    cleanup_.emplace(process_->id(), leftovers(folder_.path(), sockets_), logPath());
    start_.send("go\n");
}

LibreOfficeProcess::~LibreOfficeProcess() {
    stop();
    std::error_code error;
    for (const std::string& socket : sockets_)
        std::filesystem::remove(socket, error);
}

std::vector<std::string> LibreOfficeProcess::command(const std::string& program, OfficeMode mode) const {
    std::vector<std::string> words{"/bin/sh", "-c", kStartScript, "start", temporaryFolder()};
    // Of the toolkits that it can draw with, only this one works inside a window of another program.
    if (mode == OfficeMode::Shown) words.insert(words.end(), {"env", "SAL_USE_VCLPLUGIN=gen"});
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

std::string LibreOfficeProcess::profileUrl() const {
    return fileUrl(joinPath(folder_.path(), kProfile));
}

void LibreOfficeProcess::kill() const {
    process_->signal(SIGKILL);
}

void LibreOfficeProcess::end() const {
    if (!process_->waitForEnd(kBoundOfPoliteEnd)) stop();
}

void LibreOfficeProcess::stop() const {
    process_->signal(SIGTERM);
    if (process_->waitForEnd(kBoundOfTermination)) return;
    process_->signal(SIGKILL);
    [[maybe_unused]] const bool hasEnded = process_->waitForEnd(kBoundOfKill);
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
