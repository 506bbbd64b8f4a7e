#pragma once

#include "office/opc/ZipEntry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Records of a zip archive's central directory (APPNOTE 4.3.12).
namespace mergeloom::opc {

/// The record that a central directory starts with, its ZIP64 fields resolved (APPNOTE 4.5.3); raw and data
/// are still empty. Nothing when the bytes do not start with a whole record.
std::optional<ZipEntry> readCentralRecord(std::string_view directory);

/// The record of an entry whose local header now stands at another offset; all other fields as they were.
std::string centralRecordAt(const ZipEntry& entry, std::uint64_t offset);

}  // namespace mergeloom::opc
