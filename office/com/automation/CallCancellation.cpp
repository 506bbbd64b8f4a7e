#include "office/com/automation/CallCancellation.h"

#include <objbase.h>
#include <objidl.h>
#include <windows.h>

namespace mergeloom::com {

namespace {

/// The message that makes a thread cancel its call. Messages without a window need a number above WM_APP.
constexpr UINT kCancel = WM_APP + 0x4D1;

/// Handles the events during a call of this thread. Calls from the office are accepted. A call that the
/// office rejects fails at once, since AutomationSession repeats it. It also repeats calls that fail because
/// the office is busy, which a filter does not see.
class WaitingCalls final : public IMessageFilter {
  public:
    // The registration owns it.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        *result = id == IID_IUnknown || id == IID_IMessageFilter ? this : nullptr;
        return *result == nullptr ? E_NOINTERFACE : S_OK;
    }

    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD /*kind*/, HTASK /*caller*/, DWORD /*ticks*/,
                                               LPINTERFACEINFO /*called*/) override {
        return SERVERCALL_ISHANDLED;
    }
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK /*callee*/, DWORD /*ticks*/, DWORD /*kind*/) override {
        return static_cast<DWORD>(-1);
    }
    DWORD STDMETHODCALLTYPE MessagePending(HTASK /*callee*/, DWORD /*ticks*/, DWORD /*kind*/) override {
        MSG message;
        const auto thread = reinterpret_cast<HWND>(-1);
        const bool isCancelled = ::PeekMessageW(&message, thread, kCancel, kCancel, PM_REMOVE) != 0;
        return isCancelled ? PENDINGMSG_CANCELCALL : PENDINGMSG_WAITDEFPROCESS;
    }
};

/// The registration of the filter for the calls of this thread.
class Registration {
  public:
    Registration() { ::CoRegisterMessageFilter(&filter_, &former_); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration() {
        ::CoRegisterMessageFilter(former_, nullptr);
        if (former_ != nullptr) former_->Release();
    }

  private:
    WaitingCalls filter_;
    LPMESSAGEFILTER former_ = nullptr;
};

}  // namespace

std::shared_ptr<void> allowCancellation() {
    // Several offices may be in use, and may end in any order.
    thread_local std::weak_ptr<Registration> ofThread;
    std::shared_ptr<Registration> registration = ofThread.lock();
    if (!registration) {
        registration = std::make_shared<Registration>();
        ofThread = registration;
    }
    return registration;
}

void cancelCalls(unsigned long thread) {
    ::PostThreadMessageW(thread, kCancel, 0, 0);
}

}  // namespace mergeloom::com
