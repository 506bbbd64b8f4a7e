#include "describe/OdbcKeys.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <string_view>

namespace mergeloom::describe {

namespace {

/// A statement for the keys of all tables in the current database, by a part of the driver's file name. Its
/// columns are the schema, the table, the key, its kind (P, U or F), the column, and the schema, table and
/// column that it refers to. PostgreSQL finds the names of columns fastest by subqueries, and would compile
/// the statement for longer than it runs.
struct KeyStatement {
    std::string_view driver;
    const char* setting;  ///< a statement before it; null if there is none
    const char* statement;
};

constexpr std::array<KeyStatement, 2> kKeyStatements{{
    {"psqlodbc", "SET jit = off", R"(
SELECT n.nspname::text, c.relname::text, i.relname::text, CASE WHEN x.indisprimary THEN 'P' ELSE 'U' END,
    (SELECT attname FROM pg_catalog.pg_attribute WHERE attrelid = x.indrelid AND attnum = k.number)::text,
    '', '', '', k.place
FROM pg_catalog.pg_index x
JOIN pg_catalog.pg_class c ON c.oid = x.indrelid JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace
JOIN pg_catalog.pg_class i ON i.oid = x.indexrelid
CROSS JOIN LATERAL pg_catalog.unnest(x.indkey::int2[]) WITH ORDINALITY AS k(number, place)
WHERE x.indisunique AND x.indpred IS NULL AND x.indexprs IS NULL AND k.place <= x.indnkeyatts
    AND n.nspname NOT IN ('pg_catalog', 'pg_toast')
UNION ALL
SELECT n.nspname::text, c.relname::text, f.conname::text, 'F',
    (SELECT attname FROM pg_catalog.pg_attribute WHERE attrelid = f.conrelid AND attnum = k.number)::text,
    rn.nspname::text, rc.relname::text,
    (SELECT attname FROM pg_catalog.pg_attribute WHERE attrelid = f.confrelid AND attnum = k.referred)::text, k.place
FROM pg_catalog.pg_constraint f
JOIN pg_catalog.pg_class c ON c.oid = f.conrelid JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace
JOIN pg_catalog.pg_class rc ON rc.oid = f.confrelid JOIN pg_catalog.pg_namespace rn ON rn.oid = rc.relnamespace
CROSS JOIN LATERAL ROWS FROM (pg_catalog.unnest(f.conkey), pg_catalog.unnest(f.confkey))
    WITH ORDINALITY AS k(number, referred, place)
WHERE f.contype = 'f'
ORDER BY 1, 2, 4, 3, 9)"},
    {kMariaDbDriver, nullptr, R"(
SELECT '', TABLE_NAME, CONSTRAINT_NAME,
    CASE WHEN REFERENCED_TABLE_NAME IS NOT NULL THEN 'F' WHEN CONSTRAINT_NAME = 'PRIMARY' THEN 'P' ELSE 'U' END,
    COLUMN_NAME, '', REFERENCED_TABLE_NAME, REFERENCED_COLUMN_NAME, ORDINAL_POSITION
FROM information_schema.KEY_COLUMN_USAGE
WHERE TABLE_SCHEMA = DATABASE() AND COALESCE(REFERENCED_TABLE_SCHEMA, DATABASE()) = DATABASE()
ORDER BY 1, 2, 4, 3, 9)"},
}};

OdbcKeyColumn::Kind kindOf(const std::string& letter) {
    if (letter == "F") return OdbcKeyColumn::Kind::Foreign;
    return letter == "P" ? OdbcKeyColumn::Kind::Primary : OdbcKeyColumn::Kind::Unique;
}

void set(const std::shared_ptr<OdbcConnection>& connection, const char* setting) {
    try {
        OdbcStatement(connection).execute(setting);
    } catch (const OdbcError&) {
        // A server without the setting does not need it.
    }
}

std::vector<OdbcKeyColumn> select(const std::shared_ptr<OdbcConnection>& connection, const char* statement) {
    OdbcStatement rows(connection);
    rows.execute(statement);
    std::vector<OdbcKeyColumn> columns;
    while (rows.next()) {
        columns.push_back({kindOf(rows.text(3)), OdbcTable{{}, rows.text(0), rows.text(1)}, rows.text(2),
                           rows.text(4), OdbcTable{{}, rows.text(5), rows.text(6)}, rows.text(7)});
    }
    return columns;
}

}  // namespace

bool OdbcKeyColumn::isOfSameKey(const OdbcKeyColumn& other) const {
    return kind == other.kind && key == other.key && table.schema == other.table.schema &&
           table.name == other.table.name;
}

std::optional<std::vector<OdbcKeyColumn>> keysOfAllTables(const std::shared_ptr<OdbcConnection>& connection) {
    const std::string driver = connection->information(SQL_DRIVER_NAME);
    for (const KeyStatement& known : kKeyStatements) {
        if (driver.find(known.driver) == std::string::npos) continue;
        if (known.setting != nullptr) set(connection, known.setting);
        try {
            return select(connection, known.statement);
        } catch (const OdbcError&) {
            // A server of another version has no such catalog; its driver reads the keys then.
            return std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace mergeloom::describe
