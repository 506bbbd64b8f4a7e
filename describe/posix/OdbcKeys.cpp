#include "describe/OdbcKeys.h"

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <string_view>

namespace mergeloom::describe {

namespace {

/// A statement for the keys of all tables in the current database, by a part of the driver's file name. Its
/// columns are the schema, the table, the key, its kind (P, U or F), the column, and the schema, table and
/// column that it refers to.
struct KeyStatement {
    std::string_view driver;
    const char* statement;
};

constexpr std::array<KeyStatement, 2> kKeyStatements{{
    {"psqlodbc", R"(
SELECT n.nspname::text, c.relname::text, i.relname::text, CASE WHEN x.indisprimary THEN 'P' ELSE 'U' END,
    a.attname::text, '', '', '', k.place
FROM pg_index x
JOIN pg_class c ON c.oid = x.indrelid JOIN pg_namespace n ON n.oid = c.relnamespace
JOIN pg_class i ON i.oid = x.indexrelid
CROSS JOIN LATERAL unnest(x.indkey::int2[]) WITH ORDINALITY AS k(number, place)
JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = k.number
WHERE x.indisunique AND x.indpred IS NULL AND x.indexprs IS NULL AND k.place <= x.indnkeyatts
UNION ALL
SELECT n.nspname::text, c.relname::text, f.conname::text, 'F',
    a.attname::text, rn.nspname::text, rc.relname::text, ra.attname::text, k.place
FROM pg_constraint f
JOIN pg_class c ON c.oid = f.conrelid JOIN pg_namespace n ON n.oid = c.relnamespace
JOIN pg_class rc ON rc.oid = f.confrelid JOIN pg_namespace rn ON rn.oid = rc.relnamespace
CROSS JOIN LATERAL unnest(f.conkey, f.confkey) WITH ORDINALITY AS k(number, referred, place)
JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = k.number
JOIN pg_attribute ra ON ra.attrelid = rc.oid AND ra.attnum = k.referred
WHERE f.contype = 'f'
ORDER BY 1, 2, 4, 3, 9)"},
    {kMariaDbDriver, R"(
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
