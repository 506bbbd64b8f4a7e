#include "automation/Faults.h"

#include "base/AutomationError.h"

namespace mergeloom::automation {

void Faults::plan(FaultKind kind, int firstCall, int calls) {
    kind_ = kind;
    untilFirst_ = firstCall;
    left_ = calls;
    calls_ = 0;
}

void Faults::clear() {
    *this = {};
}

HRESULT Faults::beforeCall() {
    ++calls_;
    if (kind_ == FaultKind::None || calls_ < untilFirst_ || left_ == 0) return S_OK;
    --left_;
    if (kind_ == FaultKind::Busy) return RPC_E_CALL_REJECTED;
    if (kind_ == FaultKind::End) ::TerminateProcess(::GetCurrentProcess(), 1);
    throw AutomationError(kCommandFailed, "The command failed.");
}

Faults& faults() {
    static Faults faults;
    return faults;
}

}  // namespace mergeloom::automation
