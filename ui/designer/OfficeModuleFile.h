#pragma once

#include <cstdint>

namespace mergeloom {

/// The size in bytes of the module through which the program talks to LibreOffice; 0 when it is not there.
std::uintmax_t officeModuleSize();

}  // namespace mergeloom
