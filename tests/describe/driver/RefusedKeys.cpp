// This library is loaded before the driver manager of ODBC, and makes one of the two ways to read the keys of
// tables fail. MERGELOOM_REFUSED_KEYS=all is for the statements that read the keys of all tables, as on a
// server without these tables of its catalog. MERGELOOM_REFUSED_KEYS=each is for the functions that list the
// keys of one table.

#include <dlfcn.h>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace {

bool isRefused(std::string_view way) {
    const char* const refused = std::getenv("MERGELOOM_REFUSED_KEYS");
    return refused != nullptr && refused == way;
}

bool readsKeysOfAllTables(const SQLWCHAR* statement, SQLINTEGER length) {
    constexpr std::array<std::u16string_view, 2> kTables{u"pg_constraint", u"KEY_COLUMN_USAGE"};
    const std::u16string_view text(reinterpret_cast<const char16_t*>(statement),
                                   static_cast<std::size_t>(length));
    for (const std::u16string_view table : kTables) {
        if (text.find(table) != std::u16string_view::npos) return true;
    }
    return false;
}

}  // namespace

extern "C" {

SQLRETURN SQLExecDirectW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER length) {
    using Call = SQLRETURN (*)(SQLHSTMT, SQLWCHAR*, SQLINTEGER);
    if (isRefused("all") && readsKeysOfAllTables(text, length)) return SQL_ERROR;
    return reinterpret_cast<Call>(::dlsym(RTLD_NEXT, "SQLExecDirectW"))(statement, text, length);
}

SQLRETURN SQLPrimaryKeysW(SQLHSTMT statement, SQLWCHAR* catalog, SQLSMALLINT catalogLength, SQLWCHAR* schema,
                          SQLSMALLINT schemaLength, SQLWCHAR* table, SQLSMALLINT tableLength) {
    using Call = decltype(&SQLPrimaryKeysW);
    if (isRefused("each")) return SQL_ERROR;
    return reinterpret_cast<Call>(::dlsym(RTLD_NEXT, "SQLPrimaryKeysW"))(
        statement, catalog, catalogLength, schema, schemaLength, table, tableLength);
}
}
