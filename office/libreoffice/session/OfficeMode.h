#pragma once

namespace mergeloom::libreoffice {

/// Says whether an office hides its documents or shows them in windows on the X11 screen that the
/// environment variable DISPLAY names.
enum class OfficeMode { Hidden, Shown };

}  // namespace mergeloom::libreoffice
