#include "base/FileLock.h"

#include "base/windows/WindowsText.h"

#include <windows.h>

namespace mergeloom {

bool isLockedByAnother(const std::string& path) {
    // Opened for this process alone: that fails as long as any other has it open.
    const HANDLE file = ::CreateFileW(windows::widePath(path).c_str(), GENERIC_READ, 0, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return true;
    ::CloseHandle(file);
    return false;
}

}  // namespace mergeloom
