#pragma once

#include <windows.h>

#include <atomic>
#include <memory>
#include <set>
#include <string>

namespace mergeloom::com {

/// The process of an office that is started here. Until it is released, it ends with this process, however
/// that ends.
class OfficeProcess {
  public:
    /// Takes the class of the office before it is started.
    explicit OfficeProcess(const CLSID& office);

    /// Finds the process after the start. It stays unknown when several have started, as when the user starts
    /// the same office in the same second, and when the office belongs to a process that was there before.
    void find();

    /// Ends the process by force, unless it is unknown or the user works in it.
    void end();
    /// Stops watching the process: it is ending, or belongs to the user.
    void release();

    /// Returns true if it was ended by force.
    [[nodiscard]] bool wasEnded() const { return wasEnded_; }
    /// Returns the name of the program's file; empty if it is unknown.
    [[nodiscard]] const std::string& program() const { return program_; }

  private:
    struct CloseHandle {
        void operator()(void* handle) const { ::CloseHandle(handle); }
    };
    using Handle = std::unique_ptr<void, CloseHandle>;

    void tieToThisProcess();

    std::string program_;
    std::set<DWORD> before_;
    DWORD number_ = 0;
    Handle process_;
    Handle job_;
    std::atomic<bool> wasEnded_ = false;
};

}  // namespace mergeloom::com
