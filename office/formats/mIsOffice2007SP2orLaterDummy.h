#pragma once

namespace mergeloom {

/// Whether an installed Office 2007 has Service Pack 2, with which it learned to write PDF, XPS and
/// OpenDocument files.
bool isOffice2007SP2orLater();

}  // namespace mergeloom
