#pragma once

#include <windows.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <set>
#include <string>

namespace mergeloom::com {

/// The process of an office that is started here. It ends together with this process, also if that is killed,
/// unless release() is called before.
class OfficeProcess {
  public:
    /// Must be called before the office of the class is started.
    explicit OfficeProcess(const CLSID& office);

    /// Finds the process after the start. It remains unknown if several have started, for example one by the
    /// user, or if a process that existed before provides the office.
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
    void closeJob();

    std::string program_;
    std::set<DWORD> before_;
    DWORD number_ = 0;
    Handle process_;
    std::mutex mutex_;  ///< end() and release() may be called by two threads at a time
    Handle job_;        ///< guarded by the mutex
    std::atomic<bool> wasEnded_ = false;
};

}  // namespace mergeloom::com
