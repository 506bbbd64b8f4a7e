#include "describe/DescribeMain.h"

#include "base/ConsoleOutput.h"
#include "base/DiskFileStore.h"
#include "base/OptionReader.h"
#include "base/StopSignal.h"
#include "base/SystemError.h"
#include "describe/DescribeCommand.h"
#include "describe/PasswordPrompt.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <functional>
#include <memory>
#include <new>
#include <ostream>
#include <set>
#include <utility>

namespace mergeloom::describe {

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;
constexpr std::string_view kProgram = "mergeloom-describe";

enum class Task { Describe, List, ShowHelp, ShowVersion };

struct CommandLine {
    Task task = Task::Describe;
    DescribeOptions options{};
    bool writesProgress = false;
};

constexpr const char* kHelp = R"(Usage: mergeloom-describe SOURCE [OPTION]...
Describes a database by a structure document, from which mergeloom makes templates.

  SOURCE              a database file of SQLite or Access (.mdb, .accdb), or a
                      database of ODBC: odbc:DSN=shop

  --object NAME       describe this object only: Orders, "Form Orders"; may be
                      given several times
  --records all       add all records of the object
  --records N         add its first N records
  --records KEY=VALUE add its records with this value in the column KEY
  --output FILE       write the structure document here; pictures become files
                      in a folder beside it
  --progress          write the number of records to the standard output now and
                      then, for programs; needs --output
  --list              list the objects that there are and end
  --version, --help   show the version; show this text
)";

RecordChoice readRecords(const OptionReader& reader, const std::string& value) {
    if (value == "all") return {RecordChoice::kAll};
    const std::size_t sign = value.find('=');
    if (sign != std::string::npos && sign > 0)
        return {RecordChoice::kAll, RowFilter{value.substr(0, sign), value.substr(sign + 1)}};
    std::int64_t limit = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), limit);
    if (error != std::errc() || end != value.data() + value.size() || limit < 1) {
        reader.refuse("Option '--records' takes 'all', a number or 'KEY=VALUE', not '" + value + "'.");
    }
    return {limit};
}

void readOption(OptionReader& reader, CommandLine& line) {
    std::string value;
    if (reader.takeFlag("--help")) {
        line.task = Task::ShowHelp;
    } else if (reader.takeFlag("--version")) {
        line.task = Task::ShowVersion;
    } else if (reader.takeFlag("--list")) {
        line.task = Task::List;
    } else if (reader.takeFlag("--progress")) {
        line.writesProgress = true;
    } else if (reader.takeWithValue("--object", "an object's name", value)) {
        line.options.objects.push_back(value);
    } else if (reader.takeWithValue("--records", "'all', a number or 'KEY=VALUE'", value)) {
        line.options.records = readRecords(reader, value);
    } else if (!reader.takeWithValue("--output", "a file", line.options.output)) {
        reader.refuseOption();
    }
}

CommandLine readCommandLine(std::span<const std::string> arguments) {
    CommandLine line;
    OptionReader reader(kProgram, arguments);
    while (!reader.isAtEnd()) {
        if (reader.isAtOption()) {
            readOption(reader, line);
        } else if (line.options.source.empty()) {
            line.options.source = reader.takeArgument();
        } else {
            reader.refuse("There is a second source, '" + reader.takeArgument() + "'.");
        }
        if (line.task == Task::ShowHelp || line.task == Task::ShowVersion) return line;
    }
    if (line.options.source.empty()) reader.refuse("There is no source to describe.");
    if (line.writesProgress && line.options.output.empty())
        reader.refuse("Option '--progress' needs '--output FILE'.");
    return line;
}

/// Passes bytes on to the standard output.
class OutputSink final : public ByteSink {
  public:
    explicit OutputSink(std::ostream& stream) : stream_(stream) {}

    void write(std::span<const char> bytes) override {
        stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!stream_.flush()) raiseNotSaved("standard output", errno);
    }

  private:
    std::ostream& stream_;
};

class RecordCount final : public ConsoleProgress {
  public:
    using ConsoleProgress::ConsoleProgress;

  private:
    [[nodiscard]] std::string text(std::int64_t done, std::int64_t) const override {
        return std::to_string(done) + " records";
    }
};

/// Writes the number of records in a line, some times a second and at the end.
class RecordLines final : public Progress {
  public:
    explicit RecordLines(std::ostream& stream) : stream_(stream) {}
    RecordLines(const RecordLines&) = delete;
    RecordLines& operator=(const RecordLines&) = delete;
    ~RecordLines() override { write(); }

    void advance(std::int64_t done, std::int64_t) override {
        done_ = done;
        const Clock::time_point now = Clock::now();
        if (now < next_) return;
        next_ = now + kPause;
        write();
    }

  private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds kPause{200};

    void write() { stream_ << done_ << std::endl; }

    std::ostream& stream_;
    std::int64_t done_ = 0;
    Clock::time_point next_ = Clock::now();
};

std::unique_ptr<Progress> makeProgress(const CommandLine& line, const Streams& streams) {
    if (line.writesProgress) return std::make_unique<RecordLines>(streams.output);
    if (streams.showsProgress) return std::make_unique<RecordCount>(streams.errors);
    return std::make_unique<NoProgress>();
}

/// Writes each sentence once.
std::function<void(const std::string&)> remarksTo(std::ostream& errors) {
    return [&errors, told = std::set<std::string>()](const std::string& text) mutable {
        if (told.insert(text).second) writeConsoleText(errors, text, kProgram);
    };
}

void describe(const CommandLine& line, const Streams& streams) {
    DiskFileStore files;
    const ValueFormat format(conventionsOfLocale());
    const std::unique_ptr<Progress> progress = makeProgress(line, streams);
    const DescribeEvents events{remarksTo(streams.errors), [] { return StopSignal::received() != 0; },
                                askPasswordOnTerminal, *progress};
    DescribeCommand command(line.options, files, format, events);
    if (line.task == Task::List) return command.list(streams.output);
    OutputSink output(streams.output);
    command.run(output);
}

void runTask(const CommandLine& line, const Streams& streams) {
    switch (line.task) {
        case Task::ShowHelp:
            streams.output << kHelp;
            return;
        case Task::ShowVersion:
            streams.output << kProgram << " " MERGELOOM_VERSION "\n";
            return;
        default:
            return describe(line, streams);
    }
}

}  // namespace

int Main(std::span<const std::string> arguments, const Streams& streams) {
    const StopSignal stop;
    try {
        runTask(readCommandLine(arguments), streams);
        return kSuccess;
    } catch (const std::bad_alloc&) {
        writeConsoleText(streams.errors, "The database has a value for which there is too little memory.",
                         kProgram);
        return kFailure;
    } catch (const std::exception& error) {
        writeConsoleText(streams.errors, error.what(), kProgram);
        const int signal = StopSignal::received();
        return signal != 0 ? kEndedBySignal + signal : kFailure;
    }
}

}  // namespace mergeloom::describe
