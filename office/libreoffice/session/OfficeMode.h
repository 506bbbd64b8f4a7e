#pragma once

namespace mergeloom::libreoffice {

/// Whether an office shows its documents: without a screen, or in windows on the X11 screen that the
/// environment variable DISPLAY names.
enum class OfficeMode { Hidden, Shown };

}  // namespace mergeloom::libreoffice
