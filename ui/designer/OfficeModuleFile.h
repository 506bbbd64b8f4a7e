#pragma once

#include <cstdint>

namespace mergeloom {

/// Returns the size in bytes of the module that connects to LibreOffice; 0 when it is missing.
std::uintmax_t officeModuleSize();

}  // namespace mergeloom
