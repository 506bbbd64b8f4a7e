#include "base/AutomationError.h"
#include "describe/AccessDatabase.h"
#include "describe/OdbcDatabase.h"
#include "describe/PasswordPrompt.h"

namespace mergeloom::describe {

namespace {

[[noreturn]] void refuse(const std::string& what) {
    throw AutomationError(kFileCouldNotBeRead,
                          what + " On Windows only files of SQLite are described yet; describe it on Linux.");
}

}  // namespace

std::unique_ptr<Database> openAccess(const std::string& path) {
    refuse("The file '" + path + "' is a database of Access.");
}

std::unique_ptr<Database> openOdbc(const std::string& source, const PasswordPrompt&) {
    refuse("The source '" + source + "' is a database of ODBC.");
}

/// Returns none: only databases of ODBC have passwords.
std::optional<std::string> askPasswordOnTerminal() {
    return std::nullopt;
}

}  // namespace mergeloom::describe
