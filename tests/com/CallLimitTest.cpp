#include "office/com/automation/CallCancellation.h"
#include "office/com/automation/CallLimit.h"

#include <gtest/gtest.h>
#include <objbase.h>
#include <objidl.h>

#include <future>

namespace mergeloom::com {
namespace {

/// After a call that never returns, the office is ended, and then the run.
TEST(CallLimit, EndsTheOfficeThenTheRun) {
    std::vector<std::string> steps;
    std::promise<void> isOver;
    CallLimit limit(CallLimit::Duration(40), {[&] { steps.emplace_back("office"); },
                                              [&] {
                                                  steps.emplace_back("run");
                                                  if (steps.size() == 2) isOver.set_value();
                                              }});
    EXPECT_FALSE(limit.isExceeded());
    {
        const CallLimit::Call call(&limit);
        isOver.get_future().wait();
    }
    EXPECT_TRUE(limit.isExceeded());
    EXPECT_EQ(steps[0], "office");
    EXPECT_EQ(steps[1], "run");
}

/// The time between calls does not count. Each call takes several checks of the limit.
TEST(CallLimit, CountsOneCallOnly) {
    CallLimit limit(CallLimit::Duration(60'000), {[] { FAIL(); }, [] { FAIL(); }});
    for (int number = 0; number < 1000; ++number)
        const CallLimit::Call call(&limit);
    EXPECT_FALSE(limit.isExceeded());
}

/// Wine calls the filter but continues to wait, so the test calls the filter itself.
TEST(CallCancellation, IsForTheWaitingCall) {
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    {
        const std::shared_ptr<void> allowed = allowCancellation();
        LPMESSAGEFILTER filter = nullptr;
        ASSERT_EQ(::CoRegisterMessageFilter(nullptr, &filter), S_OK);
        ASSERT_NE(filter, nullptr);
        EXPECT_EQ(filter->MessagePending(nullptr, 0, PENDINGTYPE_TOPLEVEL), DWORD{PENDINGMSG_WAITDEFPROCESS});
        cancelCalls(::GetCurrentThreadId());
        EXPECT_EQ(filter->MessagePending(nullptr, 0, PENDINGTYPE_TOPLEVEL), DWORD{PENDINGMSG_CANCELCALL});
        EXPECT_EQ(filter->MessagePending(nullptr, 0, PENDINGTYPE_TOPLEVEL), DWORD{PENDINGMSG_WAITDEFPROCESS});
        ::CoRegisterMessageFilter(filter, nullptr);
    }
    ::CoUninitialize();
}

}  // namespace
}  // namespace mergeloom::com
