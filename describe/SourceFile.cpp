#include "describe/SourceFile.h"

#include "base/AutomationError.h"
#include "base/ConnectionString.h"
#include "base/DatabaseFile.h"
#include "base/Paths.h"
#include "base/SystemPath.h"
#include "describe/AccessDatabase.h"
#include "describe/OdbcDatabase.h"
#include "describe/SqliteDatabase.h"

#include <filesystem>
#include <system_error>

namespace mergeloom::describe {

namespace {

[[noreturn]] void refuse(const std::string& source, const std::string& reason) {
    throw AutomationError(kFileCouldNotBeRead, "The file '" + source + "' " + reason);
}

/// A pipe or a device would be waited for without end.
bool isRegularFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(systemPath(path), error);
}

}  // namespace

std::unique_ptr<Database> openSource(const std::string& source, const PasswordPrompt& askPassword) {
    if (isOdbcSource(source)) return openOdbc(source, askPassword);
    const std::string path = fullPath(source);
    if (folderExists(path)) refuse(source, "is a folder.");
    if (!fileExists(path)) refuse(source, "does not exist.");
    if (!isRegularFile(path)) refuse(source, "is a pipe or a device.");
    const std::string bytes = firstBytesOf(path);
    if (bytes.empty()) refuse(source, "is empty.");
    const DatabaseKind kind = databaseKindOf(bytes);
    if (kind == DatabaseKind::Sqlite) return openSqlite(path);
    if (kind == DatabaseKind::Access) return openAccess(path);
    refuse(source, "is no database of SQLite or Access, or it is encrypted.");
}

std::string databaseNameOf(const std::string& source) {
    if (isOdbcSource(source)) return odbcDatabaseName(source);
    const std::string name = fileNameOnly(source);
    return name.substr(0, name.rfind('.'));
}

}  // namespace mergeloom::describe
