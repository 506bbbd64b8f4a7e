#pragma once

#include <windows.h>

#include <set>
#include <string>

namespace mergeloom::automation {

/// The kinds of faults of an office, by numbers that pass between programs: its calls return that it is busy,
/// raise an error, end the program, or wait without end as behind a dialog. Rejected are all kinds of
/// calls, also those for names, for items and for the start; they are counted by themselves.
enum class FaultKind { None, Busy, Error, End, Wait, Rejected };

/// Decides which calls of the double's objects fail. There is one in each process.
class Faults {
  public:
    /// From the n-th call on, counted from 1, a number of calls fails.
    void plan(FaultKind kind, int firstCall, int calls);
    /// The double does not have members of that name, as an older office.
    void remove(const std::string& member) { missing_.insert(member); }
    /// Every document is open for reading only.
    void setReadOnly(bool isReadOnly) { isReadOnly_ = isReadOnly; }
    void clear();

    /// Returns true for a call that is to be rejected.
    bool rejectsCall();
    /// Returns the result of a call that is to fail at once; otherwise S_OK. Ends the process if the plan is
    /// an office that ends, and does not return if it is one that waits. Raises an AutomationError for an
    /// error.
    HRESULT beforeCall();
    [[nodiscard]] bool lacks(const std::string& member) const { return missing_.contains(member); }
    [[nodiscard]] bool isReadOnly() const { return isReadOnly_; }
    [[nodiscard]] int calls() const { return calls_; }

  private:
    /// Counts a call; returns true if it is one of the plan.
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
