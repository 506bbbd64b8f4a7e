#include "base/DatabaseFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "base/SystemFiles.h"
#include "base/SystemPath.h"
#include "base/Text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace mergeloom {

namespace {

constexpr std::string_view kSqliteMark("SQLite format 3\0", 16);
/// The signatures of files of Access, at offset 4.
constexpr std::size_t kAccessMarkOffset = 4;
constexpr std::string_view kAccessMarks[] = {"Standard Jet DB", "Standard ACE DB"};
constexpr std::size_t kLengthOfMarks = 20;

bool hasDatabaseMark(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(systemPath(path), error)) return false;
    try {
        return databaseKindOf(firstBytesOf(path)) != DatabaseKind::None;
    } catch (const AutomationError&) {
        return false;
    }
}

}  // namespace

std::string firstBytesOf(const std::string& path) {
    std::FILE* const file = openToRead(path);
    if (file == nullptr) raiseNotRead(path, errno);
    std::array<char, kLengthOfMarks> bytes{};
    const std::size_t size = std::fread(bytes.data(), 1, bytes.size(), file);
    const int error = std::ferror(file) != 0 ? errno : 0;
    std::fclose(file);
    if (error != 0) raiseNotRead(path, error);
    return {bytes.data(), size};
}

DatabaseKind databaseKindOf(std::string_view firstBytes) {
    if (firstBytes.starts_with(kSqliteMark)) return DatabaseKind::Sqlite;
    const std::string_view mark = firstBytes.substr(std::min(kAccessMarkOffset, firstBytes.size()));
    const bool isAccess =
        std::ranges::any_of(kAccessMarks, [mark](std::string_view known) { return mark.starts_with(known); });
    return isAccess ? DatabaseKind::Access : DatabaseKind::None;
}

bool isDatabaseFile(const std::string& path) {
    const std::string ending = toLowerAscii(extension(path));
    return std::ranges::find(kDatabaseExtensions, ending) != kDatabaseExtensions.end() ||
           hasDatabaseMark(path);
}

}  // namespace mergeloom
