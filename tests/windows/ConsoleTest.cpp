#include "windows/StartedProgram.h"

#include <gtest/gtest.h>

namespace mergeloom::windows {
namespace {

/// A console of this process, to which the programs that it starts write.
class OwnConsole {
  public:
    OwnConsole() {
        ::FreeConsole();
        isOpen_ = ::AllocConsole() != 0;
        screen_ = ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, 0, nullptr);
        for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
            before_[stream == STD_ERROR_HANDLE] = ::GetStdHandle(stream);
            ::SetStdHandle(stream, screen_);
        }
    }
    OwnConsole(const OwnConsole&) = delete;
    OwnConsole& operator=(const OwnConsole&) = delete;
    ~OwnConsole() {
        ::SetStdHandle(STD_OUTPUT_HANDLE, before_[0]);
        ::SetStdHandle(STD_ERROR_HANDLE, before_[1]);
        ::CloseHandle(screen_);
        ::FreeConsole();
    }

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    /// Returns the characters of the first line.
    [[nodiscard]] std::string firstLine() const {
        std::wstring line(200, L'\0');
        DWORD count = 0;
        ::ReadConsoleOutputCharacterW(screen_, line.data(), static_cast<DWORD>(line.size()), {0, 0}, &count);
        line.resize(count);
        return utf8Text(line.substr(0, line.find(L"  ")));
    }

  private:
    bool isOpen_ = false;
    HANDLE screen_ = INVALID_HANDLE_VALUE;
    HANDLE before_[2] = {};
};

TEST(Console, ShowsLettersOutsideOfItsCodePage) {
    const OwnConsole console;
    if (!console.isOpen()) GTEST_SKIP() << "no console can be opened here";
    const std::string line = std::string("\"") + MERGELOOM_PROGRAM + "\" --places Größe-Łódź.docx";
    const StartedProgram program(line, 0);
    ASSERT_TRUE(program.endsWithin(kLongest));
    EXPECT_EQ(program.status(), 1U);
    EXPECT_NE(console.firstLine().find("Größe-Łódź.docx' could not be read"), std::string::npos)
        << console.firstLine();
}

}  // namespace
}  // namespace mergeloom::windows
