#pragma once

namespace mergeloom {

/// The window's name in reports of errors.
inline constexpr const char* kMainForm = "frmMain";

}  // namespace mergeloom
