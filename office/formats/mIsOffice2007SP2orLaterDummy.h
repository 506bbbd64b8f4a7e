#pragma once

namespace mergeloom {

/// Returns true when an installed Office 2007 has Service Pack 2, which added the writing of PDF, XPS and
/// OpenDocument files. Always true: no Office 2007 without it is still in use.
inline bool isOffice2007SP2orLater() {
    return true;
}

}  // namespace mergeloom
