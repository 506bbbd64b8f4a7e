#include "base/windows/CommandLine.h"
#include "base/windows/WindowsText.h"

#include <gtest/gtest.h>
#include <windows.h>

// Declared in shellapi.h, which needs windows.h before it.
extern "C" __declspec(dllimport) wchar_t** __stdcall CommandLineToArgvW(const wchar_t* line, int* count);

namespace mergeloom::windows {
namespace {

std::vector<std::string> argumentsOfSystem(const std::wstring& line) {
    int count = 0;
    wchar_t** const values = ::CommandLineToArgvW(line.c_str(), &count);
    std::vector<std::string> arguments;
    for (int number = 1; number < count; ++number)
        arguments.push_back(utf8Text(values[number]));
    ::LocalFree(values);
    return arguments;
}

TEST(CommandLine, HasTheArgumentsOfTheSystem) {
    for (const wchar_t* const rest :
         {L"", L" ", L" -hidden", L"  -a  b\tc ", LR"( "a b" c)", LR"( a"b c"d)", LR"( "")", LR"( "" x)",
          LR"( C:\a\ b)", LR"( "C:\a b\\" c)", LR"( "C:\a b\" c")", LR"( a\"b)", LR"( a\\"b c")",
          LR"( a\\\"b c)", LR"( "a""b c)", LR"( "a""b" c)", LR"( "open end)", LR"( \\server\share\x)",
          L" Größe 日本 𝒳"}) {
        for (const wchar_t* const program : {L"m.exe", LR"("C:\Program Files\m.exe")"}) {
            const std::wstring line = std::wstring(program) + rest;
            EXPECT_EQ(argumentsOf(line), argumentsOfSystem(line)) << utf8Text(line);
        }
    }
}

TEST(CommandLine, WithoutTheProgram) {
    for (const wchar_t* const line : {L"m.exe  -a \"b c\" ", L"\"C:\\a b\\m.exe\" \t-a \"b c\" "})
        EXPECT_EQ(withoutProgram(line), "-a \"b c\" ");
    EXPECT_EQ(withoutProgram(L"m.exe"), "");
}

}  // namespace
}  // namespace mergeloom::windows
