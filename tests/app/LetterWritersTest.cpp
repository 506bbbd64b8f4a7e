#include "app/LetterWriters.h"
#include "base/AutomationError.h"

#include <gmock/gmock.h>

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <utility>

namespace mergeloom {

namespace {

using testing::IsEmpty;

/// Letters that contain the value of the record's first control.
class PlainLetters final : public letters::Letters {
  public:
    [[nodiscard]] const std::vector<std::string>& refusals() const override { return none_; }
    [[nodiscard]] std::vector<letters::PlaceSource> filledPlaces() const override { return {}; }
    [[nodiscard]] bool listsRecords() const override { return false; }
    [[nodiscard]] std::vector<letters::ControlPath> firstRecordsOnly() const override { return {}; }
    [[nodiscard]] std::vector<letters::ControlPath> tablesWithoutRows() const override { return {}; }
    [[nodiscard]] std::vector<std::string> remarks() const override { return {"remark"}; }
    [[nodiscard]] bool canShareLayout() const override { return false; }
    void write(std::span<const Record> records, ByteSink& sink) override {
        sink.write(records.front().controls.front().displayValue);
    }
    void append(const Record& /*record*/) override {}
    void finish(ByteSink& /*sink*/) override {}

  private:
    std::vector<std::string> none_;
};

class LetterWritersTest : public testing::Test {
  protected:
    static constexpr int kThreads = 3;

    static std::vector<LetterWriters::OwnLetters> letters() {
        std::vector<LetterWriters::OwnLetters> all(kThreads);
        for (LetterWriters::OwnLetters& own : all)
            own.letters = std::make_unique<PlainLetters>();
        return all;
    }
    static Record recordOf(int number) {
        Record record;
        record.controls.emplace_back().displayValue = std::to_string(number);
        return record;
    }
    /// Writes a file, unless its path is one of those that fail. The held one waits for such a failure.
    void save(const std::string& path, const std::function<void(ByteSink&)>& writer) {
        struct Sink final : ByteSink {
            void write(std::span<const char> part) override { bytes.append(part.data(), part.size()); }
            std::string bytes;
        } sink;
        writer(sink);
        std::unique_lock lock(mutex);
        if (path == held) failed.wait(lock, [this] { return hasFailed; });
        hasFailed = hasFailed || (failing.contains(path) && path != held);
        failed.notify_all();
        if (failing.contains(path)) throw AutomationError(kFileCouldNotBeSaved, "no " + path);
        files[path] = sink.bytes;
    }
    /// Adds letters until one fails. Returns the message of the error; empty if there is none.
    std::string write(int count) {
        LetterWriters writers(letters(),
                              [this](const auto& path, const auto& writer) { save(path, writer); });
        std::string error;
        try {
            for (int number = 1; number <= count; ++number)
                writers.add(recordOf(number), std::to_string(number));
            written = writers.wait();
            writers.raiseError();
        } catch (const AutomationError& raised) {
            written = writers.wait();
            error = raised.description();
        }
        EXPECT_EQ(written, files.size()) << "no file is written after the count";
        EXPECT_EQ(writers.remarks().size(), kThreads);
        return error;
    }

    std::mutex mutex;
    std::condition_variable failed;
    std::string held;  ///< a path whose file is written after another one has failed
    bool hasFailed = false;
    std::map<std::string, std::string> files;
    std::set<std::string> failing;
    std::size_t written = 0;
};

TEST_F(LetterWritersTest, EachLetterIsWrittenOnce) {
    EXPECT_THAT(write(0), IsEmpty());
    EXPECT_EQ(written, 0);
    EXPECT_THAT(write(1000), IsEmpty());
    EXPECT_EQ(written, 1000);
    for (const auto& [path, bytes] : files)
        EXPECT_EQ(bytes, path);
}

TEST_F(LetterWritersTest, TheFirstErrorEndsTheWork) {
    for (const int last : {10, 1000}) {
        files.clear();
        failing = {"5", "6", "7"};
        EXPECT_EQ(write(last), "no 5") << last;
        EXPECT_GE(written, 4);
        EXPECT_LT(written, 500);
    }
}

/// A single thread would have met this error first, though it occurs later.
TEST_F(LetterWritersTest, RaisesTheErrorOfTheFirstLetter) {
    failing = {"1", "2"};
    held = "1";
    EXPECT_EQ(write(10), "no 1");
}

}  // namespace

}  // namespace mergeloom
