#include "office/com/automation/OfficeProcess.h"

#include "base/Text.h"
#include "base/windows/WindowsText.h"

#include <objbase.h>
#include <tlhelp32.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace mergeloom::com {

namespace {

/// Returns the command that starts the office's program, from the part of the registry for programs of 64 or
/// 32 bits; empty if there is none.
std::wstring startCommand(const CLSID& office, REGSAM bits) {
    std::array<wchar_t, 64> identifier{};
    ::StringFromGUID2(office, identifier.data(), static_cast<int>(identifier.size()));
    const std::wstring path = L"CLSID\\" + std::wstring(identifier.data()) + L"\\LocalServer32";
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ | bits, &key) != 0) return {};
    std::array<wchar_t, 1024> text{};
    DWORD bytes = sizeof text;
    const LSTATUS status = ::RegGetValueW(key, nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    ::RegCloseKey(key);
    return status == 0 ? text.data() : std::wstring();
}

/// Returns the name of the program's file in a command, such as "WINWORD.EXE".
std::string programIn(const std::wstring& command) {
    const std::string line = windows::utf8Text(command);
    const bool isQuoted = line.starts_with('"');
    std::string path = isQuoted ? line.substr(1, line.find('"', 1) - 1) : line;
    if (!isQuoted) {
        const std::size_t end = foldCase(path).find(".exe");
        if (end != std::string::npos) path.resize(end + 4);
    }
    const std::size_t folder = path.find_last_of("\\/");
    return folder == std::string::npos ? path : path.substr(folder + 1);
}

std::string programOf(const CLSID& office) {
    for (const REGSAM bits : {KEY_WOW64_64KEY, KEY_WOW64_32KEY}) {
        if (std::string program = programIn(startCommand(office, bits)); !program.empty()) return program;
    }
    return {};
}

std::set<DWORD> processesOf(const std::string& program) {
    std::set<DWORD> found;
    const HANDLE all = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (all == INVALID_HANDLE_VALUE) return found;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = ::Process32FirstW(all, &entry); more != 0; more = ::Process32NextW(all, &entry)) {
        if (equalsIgnoringCase(windows::utf8Text(entry.szExeFile), program))
            found.insert(entry.th32ProcessID);
    }
    ::CloseHandle(all);
    return found;
}

struct Search {
    DWORD process;
    bool isFound = false;
};

/// Returns true if the process shows a window of a user's work. Dialogs cannot be minimised.
bool showsDocuments(DWORD process) {
    Search search{process};
    const auto look = [](HWND window, LPARAM parameter) -> BOOL {
        auto& found = *reinterpret_cast<Search*>(parameter);
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        const bool isWork = (::GetWindowLongPtrW(window, GWL_STYLE) & WS_MINIMIZEBOX) != 0;
        found.isFound = owner == found.process && ::IsWindowVisible(window) != 0 && isWork;
        return found.isFound ? FALSE : TRUE;
    };
    ::EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.isFound;
}

}  // namespace

OfficeProcess::OfficeProcess(const CLSID& office) : program_(programOf(office)) {
    if (!program_.empty()) before_ = processesOf(program_);
}

void OfficeProcess::find() {
    if (program_.empty()) return;
    const std::set<DWORD> now = processesOf(program_);
    std::vector<DWORD> started;
    std::ranges::set_difference(now, before_, std::back_inserter(started));
    if (started.size() != 1) return;
    number_ = started.front();
    process_.reset(::OpenProcess(PROCESS_TERMINATE | PROCESS_SET_QUOTA | SYNCHRONIZE, FALSE, number_));
    if (process_) tieToThisProcess();
}

void OfficeProcess::tieToThisProcess() {
    job_.reset(::CreateJobObjectW(nullptr, nullptr));
    if (!job_) return;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(job_.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    ::AssignProcessToJobObject(job_.get(), process_.get());
}

void OfficeProcess::end() {
    const std::lock_guard guard(mutex_);
    if (process_ && !showsDocuments(number_)) wasEnded_ = ::TerminateProcess(process_.get(), 1) != 0;
    closeJob();
}

void OfficeProcess::release() {
    const std::lock_guard guard(mutex_);
    closeJob();
}

/// Removes the limit of the job before it is closed, so that the office is not ended with it.
void OfficeProcess::closeJob() {
    if (!job_) return;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION none{};
    ::SetInformationJobObject(job_.get(), JobObjectExtendedLimitInformation, &none, sizeof none);
    job_.reset();
}

}  // namespace mergeloom::com
