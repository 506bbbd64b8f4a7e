#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Recognizes the files of databases that can be described.
namespace mergeloom {

/// The extensions by which users recognize such files.
inline constexpr std::array<std::string_view, 5> kDatabaseExtensions{"db", "sqlite", "sqlite3", "mdb",
                                                                     "accdb"};

enum class DatabaseKind : std::uint8_t { None, Sqlite, Access };

/// Returns the first bytes of a file from which its kind can be determined, fewer if the file is shorter.
/// Raises kFileCouldNotBeRead.
std::string firstBytesOf(const std::string& path);

/// Returns the kind of a database by the first bytes of its file.
DatabaseKind databaseKindOf(std::string_view firstBytes);

/// Returns true for a file that is a database by its extension or its first bytes. Only regular files are
/// read, since the bytes of a pipe would be lost; a file that cannot be read is judged by its extension.
bool isDatabaseFile(const std::string& path);

}  // namespace mergeloom
