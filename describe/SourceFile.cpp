#include "describe/SourceFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "base/SystemPath.h"
#include "describe/AccessDatabase.h"
#include "describe/OdbcDatabase.h"
#include "describe/SqliteDatabase.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <string_view>

namespace mergeloom::describe {

namespace {

constexpr std::string_view kSqliteMark("SQLite format 3\0", 16);
/// The signatures of files of Access, at offset 4.
constexpr std::size_t kAccessMarkOffset = 4;
constexpr std::string_view kAccessMarks[] = {"Standard Jet DB", "Standard ACE DB"};
constexpr std::size_t kLengthOfMarks = 20;

[[noreturn]] void refuse(const std::string& source, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeRead, "The file '" + source + "' " + reason);
}

/// Returns the first bytes of a file, fewer if it is shorter.
std::string firstBytes(const std::string& path) {
    std::ifstream file(systemPath(path), std::ios::binary);
    if (!file) mergeloom::raiseNotRead(path, errno);
    std::array<char, kLengthOfMarks> bytes{};
    file.read(bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(file.gcount())};
}

bool isAccess(std::string_view bytes) {
    const std::string_view mark = bytes.substr(std::min(kAccessMarkOffset, bytes.size()));
    return std::ranges::any_of(kAccessMarks,
                               [mark](std::string_view known) { return mark.starts_with(known); });
}

}  // namespace

std::unique_ptr<Database> openSource(const std::string& source, const PasswordPrompt& askPassword) {
    if (isOdbcSource(source)) return openOdbc(source, askPassword);
    const std::string path = fullPath(source);
    if (folderExists(path)) refuse(source, "is a folder.");
    if (!fileExists(path)) refuse(source, "does not exist.");
    const std::string bytes = firstBytes(path);
    if (bytes.empty()) refuse(source, "is empty.");
    if (bytes.starts_with(kSqliteMark)) return openSqlite(path);
    if (isAccess(bytes)) return openAccess(path);
    refuse(source, "is no database of SQLite or Access, or it is encrypted.");
}

std::string databaseNameOf(const std::string& source) {
    const std::string name = isOdbcSource(source) ? odbcDatabaseName(source) : fileNameOnly(source);
    return name.substr(0, name.rfind('.'));
}

}  // namespace mergeloom::describe
