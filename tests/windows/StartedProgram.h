#pragma once

#include "base/windows/WindowsText.h"

#include <windows.h>

#include <stdexcept>
#include <string>

namespace mergeloom::windows {

/// A program that has not ended by then has failed, in milliseconds.
constexpr DWORD kLongest = 60'000;

/// A program that a test has started, ended with the test.
class StartedProgram {
  public:
    /// The command line begins with the program's name. The flags are those of CreateProcess.
    StartedProgram(const std::string& commandLine, DWORD flags) {
        STARTUPINFOW start{};
        start.cb = sizeof start;
        std::wstring line = wideText(commandLine);
        if (::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr, &start,
                             &process_) == 0) {
            throw std::runtime_error("not started: " + commandLine);
        }
    }
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;
    ~StartedProgram() {
        ::TerminateProcess(process_.hProcess, 1);
        ::CloseHandle(process_.hThread);
        ::CloseHandle(process_.hProcess);
    }

    [[nodiscard]] DWORD number() const { return process_.dwProcessId; }
    /// Returns true if the program has ended before that many milliseconds are over.
    [[nodiscard]] bool endsWithin(DWORD milliseconds) const {
        return ::WaitForSingleObject(process_.hProcess, milliseconds) == WAIT_OBJECT_0;
    }
    [[nodiscard]] DWORD status() const {
        DWORD status = 0;
        ::GetExitCodeProcess(process_.hProcess, &status);
        return status;
    }

  private:
    PROCESS_INFORMATION process_{};
};

}  // namespace mergeloom::windows
