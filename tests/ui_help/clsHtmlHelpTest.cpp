#include "doubles/RecordingHtmlHelp.h"
#include "ui/help/clsHtmlHelp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(clsHtmlHelp, SendsEachCommandWithItsData) {
    RecordingHtmlHelp control;
    {
        clsHtmlHelp help(control);
        help.SetFile("/opt/a.chm");
        EXPECT_THAT(control.takeCalls(), ElementsAre("0  28 0"));
        control.nextWindow = 0;
        help.OpenTOC(12);
        help.OpenTopic(12, "tree.html");
        help.OpenContext(12, 1030);
        help.OpenContext(12, 0);
        help.OpenIndex(12);
        help.OpenSearch(12, "tree");
        EXPECT_THAT(control.takeCalls(), ElementsAre("12 /opt/a.chm 1 0", "12 /opt/a.chm 0 topic tree.html",
                                                     "12 /opt/a.chm 15 context 1030", "12 /opt/a.chm 1 0",
                                                     "12 /opt/a.chm 2 0", "12 /opt/a.chm 3 query 'tree'"));
    }
    EXPECT_THAT(control.calls, ElementsAre("0  29 cookie 77"));
}

TEST(clsHtmlHelp, ClosesTheWindowsThatAreStillThere) {
    RecordingHtmlHelp control;
    clsHtmlHelp help(control);
    for (const WindowHandle window : {5ULL, 18'000'000'000'000'000'000ULL, 5ULL, 7ULL}) {
        control.nextWindow = window;
        help.OpenTOC(1);
    }
    control.windows.erase(7);
    control.takeCalls();
    help.CloseHelpWindows();
    EXPECT_THAT(control.takeCalls(),
                ElementsAre("close 5", "events", "close 18000000000000000000", "events"));
    help.CloseAll();
    EXPECT_THAT(control.calls, IsEmpty());
}

TEST(clsHtmlHelp, ShutsDownOnce) {
    RecordingHtmlHelp control;
    {
        clsHtmlHelp help(control);
        help.OpenIndex(1);
        control.takeCalls();
        help.Terminate();
        EXPECT_THAT(control.takeCalls(), ElementsAre("close 5", "events", "0  29 cookie 77"));
        help.OpenTOC(1);
        help.Terminate();
    }
    EXPECT_THAT(control.calls, IsEmpty());
}

}  // namespace
}  // namespace mergeloom
