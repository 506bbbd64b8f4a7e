#pragma once

#include <windows.h>

#include <set>
#include <string>

namespace mergeloom::automation {

/// The kinds of faults of an office. The values are passed between programs. A call reports that the office
/// is busy, raises an error, ends the program, never returns, or is rejected. Rejected calls include those
/// for names, for items and for the start, which are counted separately.
enum class FaultKind { None, Busy, Error, End, Wait, Rejected };

/// Decides which calls of the double's objects fail. There is one in each process.
class Faults {
  public:
    /// Makes a number of calls fail, from the n-th one on, counted from 1.
    void plan(FaultKind kind, int firstCall, int calls);
    /// Removes the members of that name from the double, which an older office does not have.
    void remove(const std::string& member) { missing_.insert(member); }
    /// Makes every document read-only.
    void setReadOnly(bool isReadOnly) { isReadOnly_ = isReadOnly; }
    void clear();

    /// Returns true for a call that is to be rejected.
    bool rejectsCall();
    /// Returns the result of a call that fails at once, otherwise S_OK. Ends the process for FaultKind::End,
    /// does not return for FaultKind::Wait, and raises an AutomationError for FaultKind::Error.
    HRESULT beforeCall();
    [[nodiscard]] bool lacks(const std::string& member) const { return missing_.contains(member); }
    [[nodiscard]] bool isReadOnly() const { return isReadOnly_; }
    [[nodiscard]] int calls() const { return calls_; }

  private:
    /// Counts a call. Returns true if the plan contains it.
    bool isPlanned();

    FaultKind kind_ = FaultKind::None;
    int untilFirst_ = 0;
    int left_ = 0;
    int calls_ = 0;  ///< since the last plan
    std::set<std::string> missing_;
    bool isReadOnly_ = false;
};

Faults& faults();

}  // namespace mergeloom::automation
