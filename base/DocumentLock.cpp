#include "base/DocumentLock.h"

#include "base/FileLock.h"
#include "base/LocalTime.h"
#include "base/Paths.h"
#include "base/SystemFiles.h"
#include "base/SystemPath.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

namespace mergeloom {

namespace {

/// The fields of the line, in their order.
enum Field { RealName, User, Host, Since, Profile, kFields };
using Line = std::vector<std::string>;

/// In place of the profile of an office, the number of our process follows.
constexpr std::string_view kOurProfile = "mergeloom:";

/// Follows links, so that two names of a document have one lock.
std::string lockFileOf(const std::string& document) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(systemPath(document), error);
    const std::string path = error ? fullPath(document) : target.string();
    return joinPath(parentFolder(path), ".~lock." + fileNameOnly(path) + "#");
}

std::string timeNow() {
    const std::optional<std::tm> local = localTime(std::time(nullptr));
    std::array<char, 32> text{};
    if (!local) return {};
    return {text.data(), std::strftime(text.data(), text.size(), "%d.%m.%Y %H:%M", &*local)};
}

Line ourLine() {
    Line line(kFields);
    const SystemUser user = systemUser();
    line[RealName] = user.realName;
    line[User] = user.name;
    line[Host] = hostName();
    line[Since] = timeNow();
    line[Profile] = std::string(kOurProfile) + std::to_string(processNumber());
    return line;
}

std::string textOf(const Line& line) {
    std::string text;
    for (const std::string& field : line) {
        if (&field != &line.front()) text += ',';
        for (const char letter : field) {
            if (letter == ',' || letter == ';' || letter == '\\') text += '\\';
            text += letter;
        }
    }
    return text + ';';
}

Line lineOf(std::string_view text) {
    Line line(1);
    for (std::size_t at = 0; at < text.size() && text[at] != ';'; ++at) {
        if (text[at] == ',') {
            line.emplace_back();
            continue;
        }
        if (text[at] == '\\' && at + 1 < text.size()) ++at;
        line.back() += text[at];
    }
    line.resize(kFields);
    return line;
}

Line readLine(const std::string& lockFile) {
    // A longer line is not that of a lock.
    std::array<char, 4096> text{};
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(openToRead(lockFile), std::fclose);
    const std::size_t size = file ? std::fread(text.data(), 1, text.size(), file.get()) : 0;
    return lineOf({text.data(), size});
}

bool isOurProgram(const Line& line) {
    return line[Profile].starts_with(kOurProfile) && line[Host] == hostName();
}

/// Returns true if the owner is this process or one that has died; the living have locked the lock file.
bool hinders(const std::string& lockFile, const Line& line) {
    if (!isOurProgram(line)) return true;
    return line[Profile] != ourLine()[Profile] && isLockedByAnother(lockFile);
}

/// Opens and locks a new lock file, or one that a dead process of this program left; it is not open when
/// there is another.
LockFile openLockFile(const std::string& path) {
    if (!fileExists(path)) return {path, LockFileState::New};
    return isOurProgram(readLine(path)) ? LockFile(path, LockFileState::LeftBehind) : LockFile();
}

}  // namespace

std::optional<LockOwner> otherLockOwner(const std::string& document) {
    const std::string lockFile = lockFileOf(document);
    if (!fileExists(lockFile)) return {};
    const Line line = readLine(lockFile);
    if (!hinders(lockFile, line)) return {};
    return LockOwner{line[RealName].empty() ? line[User] : line[RealName], line[Host], line[Since]};
}

DocumentLock::DocumentLock(const std::string& document)
    : path_(lockFileOf(document)), file_(openLockFile(path_)) {
    if (file_.isOpen()) file_.write(textOf(ourLine()));
}

bool DocumentLock::isOf(const std::string& document) const {
    return lockFileOf(document) == path_;
}

}  // namespace mergeloom
