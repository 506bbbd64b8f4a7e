#include "base/ConsoleOutput.h"

#include <gtest/gtest.h>

#include <sstream>

namespace mergeloom {
namespace {

TEST(ConsoleMessages, AnswerQuestionsWithTheirDefaultButton) {
    struct Case {
        std::string text;
        MessageButtons buttons;
        MessageAnswer answer;
        std::string printed;
    };
    const std::vector<Case> cases = {
        {"XML file does not exist.", MessageButtons::Ok, MessageAnswer::Ok,
         "mergeloom: XML file does not exist.\n"},
        {"Make a table?", MessageButtons::YesNo, MessageAnswer::Yes, "mergeloom: Make a table? [Yes]\n"},
        {"Save it?", MessageButtons::YesNoCancel, MessageAnswer::Yes, "mergeloom: Save it? [Yes]\n"},
        {"Go on?", MessageButtons::OkCancel, MessageAnswer::Ok, "mergeloom: Go on? [OK]\n"},
        {"It is open.\r\nClose it\rnow.\nPlease.", MessageButtons::Ok, MessageAnswer::Ok,
         "mergeloom: It is open.\n           Close it\n           now.\n           Please.\n"},
        {"a\x1b[2J\u009B1m\u202Eb\tc\u05D0", MessageButtons::Ok, MessageAnswer::Ok,
         "mergeloom: a\uFFFD[2J\uFFFD1m\uFFFDb\tc\u05D0\n"},
    };
    for (const Case& one : cases) {
        std::ostringstream stream;
        ConsoleMessages messages(stream);
        EXPECT_EQ(messages.show({one.text, MessageIcon::None, one.buttons}), one.answer);
        EXPECT_EQ(stream.str(), one.printed);
    }
}

TEST(ConsoleErrorHandler, TellsWhatItKnowsOfAnError) {
    std::ostringstream stream;
    ConsoleErrorHandler handler(stream);
    handler.report({0x8004020A, "It broke.", "orders.xml", "COptions", "Load", "xml/COptions.cpp:14"});
    handler.report({5941, "No such member.", "", "modMain", "Main"});
    EXPECT_EQ(stream.str(),
              "mergeloom: error 0x8004020A: It broke.\n"
              "           orders.xml\n"
              "           in COptions.Load (xml/COptions.cpp:14)\n"
              "mergeloom: error 5941: No such member.\n"
              "           in modMain.Main\n");
}

TEST(RecordProgress, ShowsTheRateAndTheTimeThatIsLeft) {
    EXPECT_EQ(recordProgress(1200, 5000, 2000), "1200 of 5000 records, 600 a second, 6 s left");
    EXPECT_EQ(recordProgress(1, 100'000, 0), "1 of 100000 records, 1000 a second, 99 s left");
    EXPECT_EQ(recordProgress(0, 5, 900), "0 of 5 records, 0 a second, 5 s left");
    EXPECT_EQ(recordProgress(5, 5, 9000), "5 of 5 records, 0 a second, 0 s left");
}

}  // namespace
}  // namespace mergeloom
