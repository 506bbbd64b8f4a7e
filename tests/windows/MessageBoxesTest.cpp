#include "doubles/TemporaryFolder.h"
#include "windows/StartedProgram.h"

#include <gtest/gtest.h>

#include <array>

namespace mergeloom::windows {
namespace {

constexpr DWORD kLook = 20;

std::string textOf(HWND window) {
    std::array<wchar_t, 1024> text{};
    ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return utf8Text(text.data());
}

/// A message box of a program with its title and its text.
struct Box {
    HWND window = nullptr;
    std::string title{};
    std::string text{};
};

struct Search {
    DWORD process;
    Box box{};
};

Box findBox(DWORD process) {
    Search search{process};
    const auto look = [](HWND window, LPARAM parameter) -> BOOL {
        auto& found = *reinterpret_cast<Search*>(parameter);
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        const HWND text = ::GetDlgItem(window, 0xFFFF);
        if (owner != found.process || ::IsWindowVisible(window) == FALSE || text == nullptr) return TRUE;
        found.box = {window, textOf(window), textOf(text)};
        return FALSE;
    };
    ::EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.box;
}

/// Waits for a message box of the program, presses its first button, and returns it; an empty box if the
/// program ends without one.
Box answerBox(const StartedProgram& program) {
    for (DWORD waited = 0; waited < kLongest; waited += kLook) {
        const Box box = findBox(program.number());
        if (box.window != nullptr) {
            ::PostMessageW(box.window, WM_COMMAND, IDOK, 0);
            return box;
        }
        if (program.endsWithin(kLook)) break;
    }
    return {};
}

std::string commandLine(const std::string& arguments) {
    return std::string("\"") + MERGELOOM_PROGRAM + "\" " + arguments;
}

/// A program that a database starts has no console, so the numbered errors of a mapping are shown as boxes.
TEST(MessageBoxes, ShowTheErrorsOfARunWithoutAConsole) {
    const TemporaryFolder folder;
    struct Case {
        std::string arguments, text;
    };
    const std::vector<Case> cases = {
        {"-hidden", "XML file is not defined."},
        {"-hidden -xmlfile C:\\no such.xml -template a.docx", "XML file does not exist."},
        {"-hidden -xmlfile \"" MERGELOOM_SAMPLES "/orders.xml\"", "Template is not defined."},
    };
    for (const Case& one : cases) {
        const StartedProgram program(commandLine(one.arguments), DETACHED_PROCESS);
        const Box box = answerBox(program);
        EXPECT_EQ(box.title, "Mergeloom");
        EXPECT_EQ(box.text, one.text);
        ASSERT_TRUE(program.endsWithin(kLongest));
        EXPECT_EQ(program.status(), 0U);
    }
}

TEST(MessageBoxes, ARunThatSucceedsShowsNone) {
    const TemporaryFolder folder;
    const StartedProgram program(
        commandLine("-hidden -xmlfile " MERGELOOM_SAMPLES "/orders.xml -template " + (folder / "a.docx")),
        DETACHED_PROCESS);
    EXPECT_EQ(answerBox(program).window, nullptr);
    EXPECT_EQ(program.status(), 0U);
    EXPECT_EQ(folder.entryCount(), 1);
}

}  // namespace
}  // namespace mergeloom::windows
