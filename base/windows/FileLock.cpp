#include "base/FileLock.h"

#include "base/windows/WindowsText.h"

#include <windows.h>

namespace mergeloom {

bool isLockedByAnother(const std::string& path) {
    // Opening a file without sharing fails while any other process has it open.
    const HANDLE file = ::CreateFileW(windows::widePath(path).c_str(), GENERIC_READ, 0, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return true;
    ::CloseHandle(file);
    return false;
}

}  // namespace mergeloom
