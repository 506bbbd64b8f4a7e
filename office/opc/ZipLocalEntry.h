#pragma once

#include "office/opc/ZipEntry.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// Finds an entry's local header, data and data descriptor in the archive and sets raw and data. All of them
/// must end before the limit, where the next entry or the central directory starts. Answers why the local
/// header and the directory contradict each other, as a clause for a message; empty when they do not.
std::string locateEntry(ZipEntry& entry, std::string_view archive, std::uint64_t limit);

}  // namespace mergeloom::opc
