#include "base/Terminal.h"

#include "base/windows/CommandLine.h"
#include "base/windows/MessageBoxes.h"
#include "base/windows/WindowsText.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <iostream>
#include <streambuf>
#include <utility>

namespace mergeloom {

namespace {

/// Writes to a console as UTF-16, which it shows whatever its code page is.
class ConsoleBuffer final : public std::streambuf {
  public:
    explicit ConsoleBuffer(HANDLE console) : console_(console) {
        // Without this mode the sequences that erase a line would be shown.
        if (::GetConsoleMode(console, &mode_) != 0)
            ::SetConsoleMode(console, mode_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
    ConsoleBuffer(const ConsoleBuffer&) = delete;
    ConsoleBuffer& operator=(const ConsoleBuffer&) = delete;
    ~ConsoleBuffer() override {
        ConsoleBuffer::sync();
        ::SetConsoleMode(console_, mode_);
    }

  protected:
    int_type overflow(int_type character) override {
        if (!traits_type::eq_int_type(character, traits_type::eof()))
            text_ += traits_type::to_char_type(character);
        return traits_type::not_eof(character);
    }
    std::streamsize xsputn(const char* text, std::streamsize count) override {
        text_.append(text, static_cast<std::size_t>(count));
        return count;
    }
    int sync() override {
        const std::wstring text = windows::wideText(std::exchange(text_, {}));
        DWORD written = 0;
        ::WriteConsoleW(console_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return 0;
    }

  private:
    HANDLE console_;
    DWORD mode_ = 0;
    std::string text_;
};

bool isConsole(HANDLE stream) {
    DWORD mode = 0;
    return ::GetConsoleMode(stream, &mode) != 0;
}

}  // namespace

struct Terminal::Parts {
    Parts()
        : arguments(windows::argumentsOf(::GetCommandLineW())),
          commandLine(windows::withoutProgram(::GetCommandLineW())),
          areErrorsUnseen(windows::areErrorsUnseen()),
          outputBuffer(bufferOf(STD_OUTPUT_HANDLE)),
          errorBuffer(areErrorsUnseen ? std::make_unique<windows::MessageBoxBuffer>()
                                      : bufferOf(STD_ERROR_HANDLE)),
          output(outputBuffer ? outputBuffer.get() : std::cout.rdbuf()),
          errors(errorBuffer ? errorBuffer.get() : std::cerr.rdbuf()) {
        // The results of a run are the same bytes on every system.
        ::_setmode(::_fileno(stdout), O_BINARY);
        ::_setmode(::_fileno(stderr), O_BINARY);
    }

    /// Returns a buffer for a console; null for a file or a pipe, which take the bytes as they are.
    static std::unique_ptr<std::streambuf> bufferOf(DWORD name) {
        const HANDLE stream = ::GetStdHandle(name);
        if (!isConsole(stream)) return nullptr;
        return std::make_unique<ConsoleBuffer>(stream);
    }

    std::vector<std::string> arguments;
    std::optional<std::string> commandLine;
    bool areErrorsUnseen;
    std::unique_ptr<std::streambuf> outputBuffer;
    std::unique_ptr<std::streambuf> errorBuffer;
    std::ostream output;
    std::ostream errors;
    windows::MessageBoxes boxes;
};

Terminal::Terminal(int, char**) : parts_(std::make_unique<Parts>()) {}

Terminal::~Terminal() {
    parts_->output.flush();
}

const std::vector<std::string>& Terminal::arguments() const {
    return parts_->arguments;
}

const std::optional<std::string>& Terminal::commandLine() const {
    return parts_->commandLine;
}

bool Terminal::showsErrors() const {
    return !parts_->areErrorsUnseen && isConsole(::GetStdHandle(STD_ERROR_HANDLE));
}

std::ostream& Terminal::output() const {
    return parts_->output;
}

std::ostream& Terminal::errors() const {
    return parts_->errors;
}

Messages* Terminal::messageBoxes() const {
    return parts_->areErrorsUnseen ? &parts_->boxes : nullptr;
}

}  // namespace mergeloom
