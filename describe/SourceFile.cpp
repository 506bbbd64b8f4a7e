#include "describe/SourceFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "describe/SqliteDatabase.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <string_view>

namespace mergeloom::describe {

namespace {

constexpr std::string_view kSqliteMark("SQLite format 3\0", 16);

[[noreturn]] void refuse(const std::string& source, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeRead, "The file '" + source + "' " + reason);
}

/// Returns the first bytes of a file, fewer if it is shorter.
std::string firstBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) mergeloom::raiseNotRead(path, errno);
    std::array<char, kSqliteMark.size()> bytes{};
    file.read(bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(file.gcount())};
}

}  // namespace

std::unique_ptr<Database> openSource(const std::string& source) {
    const std::string path = fullPath(source);
    if (folderExists(path)) refuse(source, "is a folder.");
    if (!fileExists(path)) refuse(source, "does not exist.");
    const std::string bytes = firstBytes(path);
    if (bytes.empty()) refuse(source, "is empty.");
    if (bytes != kSqliteMark) refuse(source, "is no database of SQLite, or it is encrypted.");
    return openSqlite(path);
}

}  // namespace mergeloom::describe
