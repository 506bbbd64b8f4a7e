#pragma once

namespace mergeloom {

/// Makes the system back the first part of the heap with large pages as it is used, if it offers them. A run
/// that fills much memory at once then spends much less time in the system. Does nothing where that is not
/// possible. To be called at the start of a program, before it has other threads.
void useLargePages();

}  // namespace mergeloom
