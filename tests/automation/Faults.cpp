#include "automation/Faults.h"

#include "base/AutomationError.h"

namespace mergeloom::automation {

namespace {

/// Waits and handles messages, like an office that shows a dialog.
[[noreturn]] void waitForever() {
    for (;;) {
        MSG message;
        ::GetMessageW(&message, nullptr, 0, 0);
        ::DispatchMessageW(&message);
    }
}

}  // namespace

void Faults::plan(FaultKind kind, int firstCall, int calls) {
    kind_ = kind;
    untilFirst_ = firstCall;
    left_ = calls;
    calls_ = 0;
}

void Faults::clear() {
    *this = {};
}

bool Faults::isPlanned() {
    ++calls_;
    if (kind_ == FaultKind::None || calls_ < untilFirst_ || left_ == 0) return false;
    --left_;
    return true;
}

bool Faults::rejectsCall() {
    return kind_ == FaultKind::Rejected && isPlanned();
}

HRESULT Faults::beforeCall() {
    if (kind_ == FaultKind::Rejected || !isPlanned()) return S_OK;
    if (kind_ == FaultKind::Wait) waitForever();
    if (kind_ == FaultKind::Busy) return RPC_E_CALL_REJECTED;
    if (kind_ == FaultKind::End) ::TerminateProcess(::GetCurrentProcess(), 1);
    throw AutomationError(kCommandFailed, "The command failed.");
}

Faults& faults() {
    static Faults faults;
    return faults;
}

}  // namespace mergeloom::automation
