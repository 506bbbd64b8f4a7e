#include "doubles/TemporaryFolder.h"
#include "office/libreoffice/calls/CallPipe.h"
#include "office/libreoffice/calls/CallValues.h"
#include "office/model/word/Enumerations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace mergeloom::libreoffice {

namespace {

using namespace std::chrono_literals;

/// Returns the value that is received after sending it.
template <typename T>
T passed(const T& value) {
    CallWriter out;
    putValue(out, value);
    CallReader in(out.bytes());
    T received = takeValue<T>(in);
    EXPECT_TRUE(in.isAtEnd());
    return received;
}

template <typename T>
void expectPassed(const std::vector<T>& values) {
    for (const T& value : values)
        EXPECT_EQ(passed(value), value);
}

TEST(CallValues, EachKindArrivesAsItWasSent) {
    expectPassed<int>({0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
    expectPassed<std::int64_t>(
        {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()});
    EXPECT_TRUE(passed(true));
    EXPECT_FALSE(passed(false));
    expectPassed<word::WdFieldType>({word::WdFieldType::wdFieldEmpty, word::WdFieldType::wdFieldIf,
                                     word::WdFieldType::wdFieldMergeField});
    expectPassed<CharacterPosition>({{0}, {1LL << 40}});
    expectPassed<CharacterCount>({{-5}, {5}});
    expectPassed<double>({0.0, -0.1, 1e300, std::numeric_limits<double>::infinity()});
    expectPassed<std::strong_ordering>(
        {std::strong_ordering::less, std::strong_ordering::equal, std::strong_ordering::greater});
    expectPassed<std::string>({"", "Größe 😀", std::string("a\0b", 3), std::string(100'000, 'x')});
    expectPassed<std::vector<std::string>>({{}, {""}, {"one", "", "three"}});
}

TEST(CallValues, ARequestThatEndsEarlyIsRefused) {
    CallWriter whole;
    putValue(whole, std::vector<std::string>{"one", "two"});
    for (std::size_t size = 0; size < whole.bytes().size(); ++size) {
        CallReader in(whole.bytes().substr(0, size));
        EXPECT_THROW((void)takeValue<std::vector<std::string>>(in), std::out_of_range) << size;
    }
}

/// A test at one end of a pipe whose other end is in a thread of its own.
class PipeTest : public ::testing::Test {
  protected:
    /// The path in the address of a socket is limited to 108 characters.
    PipeTest() { std::filesystem::create_directories(folder_); }

    /// Runs the body with one end of a pipe and returns the other one.
    CallPipe connected(std::function<void(CallPipe&)> body) {
        CallListener listener(folder_);
        other_ = std::jthread([this, body = std::move(body)] {
            CallPipe pipe = connectToListener(folder_);
            body(pipe);
        });
        return listener.accept();
    }

  private:
    TemporaryFolder temporary_;
    const std::string folder_ = temporary_ / std::string(150, 'd');
    std::jthread other_;
};

TEST_F(PipeTest, FramesArriveWholeAndInOrder) {
    const std::vector<std::string> texts = {
        "", "a", std::string(4'087, 'b'), std::string(4'096, 'c'), std::string(5'000'000, 'd'), "e"};
    CallPipe pipe = connected([&](CallPipe& sender) {
        for (const std::string& text : texts)
            sender.send(FrameKind::Request, text);
        sender.send(FrameKind::Rest, {});
    });
    for (const std::string& text : texts) {
        const CallFrame frame = pipe.receive();
        EXPECT_EQ(frame.kind, FrameKind::Request);
        EXPECT_EQ(frame.bytes, text);
    }
    EXPECT_EQ(pipe.receive().kind, FrameKind::Rest);
    EXPECT_THROW((void)pipe.receive(), std::system_error) << "the other end is closed";
    EXPECT_THROW(while (true) pipe.send(FrameKind::Answer, "x"), std::system_error);
}

TEST_F(PipeTest, GivesUpWhenNothingComes) {
    CallPipe pipe = connected([](CallPipe& quiet) { EXPECT_EQ(quiet.receive().bytes, "go on"); });
    pipe.setPatience(1ms);
    EXPECT_FALSE(pipe.tryToReceive().has_value());
    pipe.send(FrameKind::Request, "go on");
}

TEST(CallListener, NobodyConnectsWithoutOne) {
    const TemporaryFolder folder;
    EXPECT_THROW((void)connectToListener(folder.path()), std::system_error);
    EXPECT_THROW((void)connectToListener(folder / "missing"), std::system_error);
}

}  // namespace

}  // namespace mergeloom::libreoffice
