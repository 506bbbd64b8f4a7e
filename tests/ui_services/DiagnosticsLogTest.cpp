#include "doubles/ChangedVariable.h"
#include "doubles/TemporaryFolder.h"
#include "ui/services/DiagnosticsLog.h"
#include "ui/services/StateFolder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <regex>
#include <thread>
#include <vector>

namespace mergeloom {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

TEST(DiagnosticsLog, LiesInTheStateFolder) {
    const TemporaryFolder home;
    const ChangedVariable homeFolder("HOME", home.path());
    {
        const ChangedVariable state("XDG_STATE_HOME", home / "state");
        DiagnosticsLog log;
        EXPECT_EQ(log.path(), home / "state/mergeloom/diagnostics.log");
        log.append("started");
        EXPECT_THAT(home.bytesOf("state/mergeloom/diagnostics.log"), testing::EndsWith(" started\n"));
        using std::filesystem::perms;
        EXPECT_EQ(std::filesystem::status(home / "state/mergeloom").permissions(), perms::owner_all);
    }
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>("relative")}) {
        const ChangedVariable state("XDG_STATE_HOME", value);
        EXPECT_EQ(stateFolder(), home / ".local/state/mergeloom");
    }
}

TEST(DiagnosticsLog, ALineForEachEvent) {
    const TemporaryFolder folder;
    DiagnosticsLog log(folder / "log");
    log.append("two\nlines\tand more");
    log.append(std::string(DiagnosticsLog::kMaxTextLength - 1, 'x') + "üü");
    const std::vector<std::string> lines = linesOf(folder.bytesOf("log"));
    ASSERT_EQ(lines.size(), 2U);
    const std::regex expected(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z two lines and more)");
    EXPECT_TRUE(std::regex_match(lines[0], expected)) << lines[0];
    EXPECT_TRUE(lines[1].ends_with("xxx")) << "cut between two letters";
}

TEST(DiagnosticsLog, GivesUpItsOldestLines) {
    const TemporaryFolder folder;
    constexpr std::size_t kLimit = 2000;
    DiagnosticsLog log(folder / "log", kLimit);
    for (int number = 1; number <= 200; ++number) {
        log.append("event " + std::to_string(number));
        ASSERT_LE(folder.bytesOf("log").size(), kLimit);
    }
    const std::vector<std::string> lines = linesOf(folder.bytesOf("log"));
    EXPECT_GT(lines.size(), 20U) << "not more than need be";
    int number = 201 - static_cast<int>(lines.size());
    for (const std::string& line : lines)
        EXPECT_TRUE(line.ends_with("Z event " + std::to_string(number++))) << line;
}

TEST(DiagnosticsLog, ThreadsShareIt) {
    const TemporaryFolder folder;
    DiagnosticsLog log(folder / "log");
    const auto write = [&log] {
        for (int i = 0; i < 100; ++i)
            log.append("0123456789");
    };
    std::thread other(write);
    write();
    other.join();
    const std::vector<std::string> lines = linesOf(folder.bytesOf("log"));
    EXPECT_EQ(lines.size(), 200U);
    for (const std::string& line : lines)
        EXPECT_TRUE(line.ends_with("Z 0123456789")) << line;
}

TEST(DiagnosticsLog, WaitsWhileAnotherWrites) {
    const TemporaryFolder folder;
    folder.put("log", "");
    const int another = open((folder / "log").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(another, LOCK_EX), 0);
    DiagnosticsLog log(folder / "log");
    const auto written = std::async(std::launch::async, [&] { log.append("later"); });
    EXPECT_EQ(written.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    EXPECT_EQ(folder.bytesOf("log"), "");
    close(another);
    written.wait();
    EXPECT_THAT(folder.bytesOf("log"), testing::EndsWith("later\n"));
}

TEST(DiagnosticsLog, CannotBeWritten) {
    const TemporaryFolder folder;
    folder.put("file", "x");
    DiagnosticsLog(folder / "file/log").append("lost");
    DiagnosticsLog(folder.path()).append("lost");
    EXPECT_EQ(folder.bytesOf("file"), "x");
}

}  // namespace
}  // namespace mergeloom
