#include "automation/DoubleClasses.h"
#include "automation/Faults.h"
#include "base/AutomationError.h"
#include "base/windows/WindowsText.h"
#include "office/com/automation/AutomationObject.h"
#include "office/com/automation/OfficeProcess.h"
#include "office/com/excel/ComExcel.h"
#include "office/com/word/ComWord.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tlhelp32.h>

#include <functional>
#include <thread>

/// Tests of offices that run as separate programs.
namespace mergeloom {
namespace {

using automation::FaultKind;
using automation::kExcelDouble;
using automation::kWordDouble;
using automation::RegisteredClass;
using testing::HasSubstr;

/// The time in milliseconds after which a program that has not ended has failed.
constexpr DWORD kLongest = 60'000;
constexpr const char* kIdentifier = "Mergeloom.FaultyDouble";

std::vector<DWORD> doubles() {
    std::vector<DWORD> found;
    const HANDLE all = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = ::Process32FirstW(all, &entry); more != 0; more = ::Process32NextW(all, &entry))
        if (windows::utf8Text(entry.szExeFile) == "automation_server.exe")
            found.push_back(entry.th32ProcessID);
    ::CloseHandle(all);
    return found;
}

/// Waits for the end of all doubles; returns true if there is none.
bool haveEnded(const std::vector<DWORD>& processes) {
    for (const DWORD process : processes) {
        const HANDLE handle = ::OpenProcess(SYNCHRONIZE, FALSE, process);
        if (handle == nullptr) continue;
        const bool hasEnded = ::WaitForSingleObject(handle, kLongest) == WAIT_OBJECT_0;
        ::CloseHandle(handle);
        if (!hasEnded) return false;
    }
    return true;
}

void endByForce(const std::vector<DWORD>& processes) {
    for (const DWORD process : processes) {
        const HANDLE handle = ::OpenProcess(PROCESS_TERMINATE, FALSE, process);
        ::TerminateProcess(handle, 1);
        ::CloseHandle(handle);
    }
}

std::string fault(FaultKind kind, int firstCall, int calls) {
    return "--fault " + std::to_string(static_cast<int>(kind)) + " " + std::to_string(firstCall) + " " +
           std::to_string(calls);
}

com::OfficeServer serverWith(com::Patience patience) {
    return {.programIdentifier = kIdentifier, .patience = patience};
}

void useWord(const com::OfficeServer& server) {
    const word::ApplicationPtr office = com::makeWordApplication(server);
    const word::DocumentPtr document = office->Documents()->Add("");
    for (int number = 0; number < 10; ++number)
        office->Selection()->TypeText("x");
    EXPECT_EQ(document->Fields()->Count(), 0);
    office->Quit(word::WdSaveOptions::wdDoNotSaveChanges);
}

void useExcel(const com::OfficeServer& server) {
    const excel::ApplicationPtr office = com::makeExcelApplication(server);
    const excel::WorkbookPtr workbook = office->Workbooks()->Add("");
    for (int number = 0; number < 5; ++number)
        office->ActiveCell()->SetValue("x");
    EXPECT_FALSE(workbook->Saved());
    office->Quit();
}

/// A use of one kind of office.
struct UsedOffice {
    const char* name;
    const automation::DoubleClass& offered;
    void (*use)(const com::OfficeServer&);
};

const UsedOffice kOffices[] = {{"Word", kWordDouble, useWord}, {"Excel", kExcelDouble, useExcel}};

class StartedOffice : public testing::TestWithParam<UsedOffice> {
  protected:
    void TearDown() override { endByForce(doubles()); }

    RegisteredClass with(const std::string& options) {
        return RegisteredClass::further(GetParam().offered, kIdentifier, MERGELOOM_DOUBLE_PROGRAM, options);
    }
    AutomationError errorOfUse(com::Patience patience = {}) {
        try {
            GetParam().use(serverWith(patience));
        } catch (const AutomationError& error) {
            return error;
        }
        return {0, "no error"};
    }
};

INSTANTIATE_TEST_SUITE_P(, StartedOffice, testing::ValuesIn(kOffices),
                         [](const auto& tested) { return tested.param.name; });

TEST_P(StartedOffice, EndsWithItsUse) {
    const RegisteredClass registered = with("");
    EXPECT_EQ(errorOfUse().number(), 0U);
    EXPECT_TRUE(haveEnded(doubles()));
}

TEST_P(StartedOffice, IsNamedWhereItIsNotInstalled) {
    const AutomationError error = errorOfUse();
    EXPECT_EQ(error.number(), kNotAvailable);
    EXPECT_THAT(error.description(), HasSubstr("Install Microsoft " + std::string(GetParam().name)));
}

TEST_P(StartedOffice, ThatEndsInTheMiddleIsTold) {
    for (const int call : {1, 4, 7}) {
        const RegisteredClass registered = with(fault(FaultKind::End, call, 1));
        const AutomationError error = errorOfUse();
        EXPECT_EQ(error.number(), kNotAvailable) << call << error.description();
        EXPECT_THAT(error.description(), HasSubstr("has ended"));
        EXPECT_TRUE(haveEnded(doubles()));
    }
}

/// The office rejects calls before they reach an object, including those for its start, for names of members
/// and for enumerators.
TEST_P(StartedOffice, ThatRejectsCallsIsAskedAgain) {
    for (const int call : {1, 2, 6}) {
        const RegisteredClass registered = with(fault(FaultKind::Rejected, call, 2));
        const AutomationError error = errorOfUse({.attempts = 4, .pauseMilliseconds = 0});
        EXPECT_EQ(error.number(), 0U) << call << error.description();
        EXPECT_TRUE(haveEnded(doubles()));
    }
}

TEST_P(StartedOffice, ThatNeverAnswersIsToldAndEnded) {
    for (const int call : {1, 9}) {
        const RegisteredClass registered = with(fault(FaultKind::Wait, call, 1));
        const AutomationError error = errorOfUse({.callMilliseconds = 2'000});
        EXPECT_EQ(error.number(), kNotAvailable);
        EXPECT_THAT(error.description(),
                    HasSubstr(std::string(GetParam().name) + " has not answered for 2 seconds"));
        EXPECT_TRUE(haveEnded(doubles())) << call;
    }
}

/// The user may have opened documents in the office, which must not be lost.
TEST_P(StartedOffice, ThatTheUserSeesIsNotEnded) {
    for (const bool isShown : {false, true}) {
        const RegisteredClass registered = with(isShown ? "--shown" : "");
        CLSID identifier{};
        ASSERT_EQ(::CLSIDFromProgID(windows::wideText(kIdentifier).c_str(), &identifier), S_OK);
        com::OfficeProcess process(identifier);
        com::AutomationSession session(GetParam().name, com::Patience{}, nullptr);
        const com::DispatchPtr application = session.start(kIdentifier);
        process.find();
        process.end();
        EXPECT_EQ(process.wasEnded(), !isShown);
        EXPECT_EQ(process.program(), "automation_server.exe");
        session.releaseOffice();
        if (isShown) endByForce(doubles());
        EXPECT_TRUE(haveEnded(doubles()));
    }
}

TEST_P(StartedOffice, ThatStaysBusyIsToldAndEnded) {
    for (const FaultKind kind : {FaultKind::Busy, FaultKind::Rejected}) {
        const RegisteredClass registered = with(fault(kind, 9, 1'000'000));
        const AutomationError error = errorOfUse({.attempts = 3, .pauseMilliseconds = 0});
        EXPECT_THAT(error.description(), HasSubstr("is busy"));
        EXPECT_TRUE(haveEnded(doubles()));
    }
}

/// During a call, messages of other programs to this program's windows are handled.
TEST(WaitingCall, AnswersMessages) {
    const RegisteredClass registered =
        RegisteredClass::further(kWordDouble, kIdentifier, MERGELOOM_DOUBLE_PROGRAM);
    const auto session = std::make_shared<com::AutomationSession>(
        "Word", com::Patience{.callMilliseconds = kLongest}, nullptr);
    const com::AutomationObject office(session, session->start(kIdentifier), "Application");
    const HWND window =
        ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
    const HANDLE answered = ::CreateEventW(nullptr, TRUE, FALSE, L"Mergeloom.Answered");
    std::thread other([&] {
        ::SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"answered"));
        ::SetEvent(answered);
    });
    EXPECT_NO_THROW(office.call("TestWait", {"Mergeloom.Answered"}));
    office.call("Quit");
    session->releaseOffice();
    other.join();
    ::DestroyWindow(window);
    ::CloseHandle(answered);
    EXPECT_TRUE(haveEnded(doubles()));
}

}  // namespace
}  // namespace mergeloom
