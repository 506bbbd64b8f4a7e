#pragma once

#include "describe/OdbcConnection.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// A column of a key.
struct OdbcKeyColumn {
    enum class Kind : std::uint8_t { Primary, Unique, Foreign };

    Kind kind = Kind::Primary;
    OdbcTable table{};
    std::string key{};  ///< the name of the key in its table
    std::string column{};
    OdbcTable referredTable{};     ///< of a foreign key
    std::string referredColumn{};  ///< likewise

    [[nodiscard]] bool isOfSameKey(const OdbcKeyColumn& other) const;
};

/// Returns the columns of all keys of a database, those of each key together and in their order. Returns none
/// for a database whose own catalog is not known here; ODBC lists the keys of one table at a time.
std::optional<std::vector<OdbcKeyColumn>> keysOfAllTables(const std::shared_ptr<OdbcConnection>& connection);

}  // namespace mergeloom::describe
