#include "base/LargePages.h"

namespace mergeloom {

/// Windows reserves them for programs with a privilege.
void useLargePages() {}

}  // namespace mergeloom
