#include "base/LockFile.h"

#include "base/windows/WindowsText.h"

#include <windows.h>

#include <array>
#include <utility>

namespace mergeloom {

namespace {

constexpr DWORD kLongestName = 256;

HANDLE handleOf(std::intptr_t file) {
    return reinterpret_cast<HANDLE>(file);
}

/// The system deletes the file when its handle is closed, also when the process dies. Others may read it
/// until then.
std::intptr_t openLockFile(const std::string& path, LockFileState state) {
    const DWORD disposition = state == LockFileState::New ? CREATE_NEW : OPEN_EXISTING;
    return reinterpret_cast<std::intptr_t>(
        ::CreateFileW(windows::widePath(path).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                      FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, disposition,
                      FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
}

}  // namespace

SystemUser systemUser() {
    std::array<wchar_t, kLongestName + 1> name{};
    DWORD size = name.size();
    if (::GetUserNameW(name.data(), &size) == 0) return {};
    return {{}, windows::utf8Text(name.data())};
}

std::string hostName() {
    std::array<wchar_t, kLongestName> name{};
    DWORD size = name.size();
    const bool isKnown = ::GetComputerNameExW(ComputerNameDnsHostname, name.data(), &size) != 0;
    return isKnown ? windows::utf8Text(name.data()) : std::string();
}

LockFile::LockFile(const std::string& path, LockFileState state)
    : path_(path), file_(openLockFile(path, state)) {}

LockFile::LockFile(LockFile&& other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, kNone)) {}

LockFile::~LockFile() {
    if (isOpen()) ::CloseHandle(handleOf(file_));
}

void LockFile::write(const std::string& text) {
    const HANDLE file = handleOf(file_);
    ::SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    ::SetEndOfFile(file);
    DWORD written = 0;
    ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

}  // namespace mergeloom
