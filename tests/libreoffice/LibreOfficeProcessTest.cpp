#include "base/AutomationError.h"
#include "base/Paths.h"
#include "doubles/MemoryFileStore.h"
#include "libreoffice/OfficeProcesses.h"
#include "office/libreoffice/session/LibreOfficeProcess.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/ScratchPaths.h"
#include "office/libreoffice/session/UnoText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mergeloom::libreoffice {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;
using namespace std::chrono_literals;

/// Returns the existing socket files of an office.
std::vector<std::string> socketsOf(const std::string& pipeName, const std::string& officeFolder) {
    std::vector<std::string> sockets = socketFiles(pipeName, fileUrl(officeFolder + "/profile"));
    std::erase_if(sockets, [](const std::string& socket) { return !std::filesystem::exists(socket); });
    return sockets;
}

std::string errorOfStart(TimeBounds bounds = {}) {
    MemoryFileStore files;
    try {
        const LibreOfficeSession session(files, bounds);
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kNotAvailable);
        return error.description();
    }
    return "no error";
}

/// A program that replaces an office.
class Impostor {
  public:
    explicit Impostor(const std::string& script) {
        folder_.put("soffice", "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(folder_ / "soffice", std::filesystem::perms::owner_all);
    }

  private:
    TemporaryFolder folder_;
    Variable variable_{"MERGELOOM_SOFFICE", folder_ / "soffice"};
};

class LibreOfficeProcessTest : public ::testing::Test {
  protected:
    OwnTemporaryFolder temporary;
    MemoryFileStore files;
};

TEST_F(LibreOfficeProcessTest, leavesNothingBehind) {
    std::string pipeName;
    std::string officeFolder;
    {
        LibreOfficeSession session(files);
        session.files().create(DocumentKind::Word);
        pipeName = session.process().pipeName();
        officeFolder = parentFolder(session.process().workFolder());
        EXPECT_GE(temporary.processes().size(), 2U);
        EXPECT_THAT(temporary.entries(), ElementsAre(fileNameOnly(officeFolder)));
        EXPECT_THAT(socketsOf(pipeName, officeFolder), SizeIs(2));
    }
    EXPECT_THAT(temporary.processes(), IsEmpty());
    EXPECT_THAT(temporary.entries(), IsEmpty());
    EXPECT_THAT(socketsOf(pipeName, officeFolder), IsEmpty());
}

TEST_F(LibreOfficeProcessTest, aKilledOneLeavesNothingBehindAndAnotherUndisturbed) {
    LibreOfficeSession first(files);
    std::string pipeName;
    std::string officeFolder;
    {
        LibreOfficeSession second(files);
        EXPECT_TRUE(second.files().create(DocumentKind::Excel).is());
        pipeName = second.process().pipeName();
        officeFolder = parentFolder(second.process().workFolder());
        second.process().kill();
    }
    EXPECT_THAT(socketsOf(pipeName, officeFolder), IsEmpty());
    EXPECT_FALSE(folderExists(officeFolder));
    EXPECT_THAT(processesNaming(pipeName), IsEmpty());
    EXPECT_TRUE(first.files().create(DocumentKind::Word).is());
}

TEST_F(LibreOfficeProcessTest, tellsWhatHindersTheStart) {
    {
        const Variable variable("MERGELOOM_SOFFICE", "/nowhere/soffice");
        EXPECT_THAT(errorOfStart(), HasSubstr("MERGELOOM_SOFFICE names '/nowhere/soffice'"));
    }
    {
        const Variable variable("TMPDIR", temporary / "missing");
        EXPECT_THAT(errorOfStart(), HasSubstr("missing' does not exist"));
    }
    {
        // No user can create folders here, not even the superuser.
        const Variable variable("TMPDIR", "/proc");
        EXPECT_THAT(errorOfStart(), HasSubstr("'/proc' cannot be written"));
    }
}

TEST_F(LibreOfficeProcessTest, tellsTheLastWordsOfAnOfficeThatDoesNotStart) {
    const Impostor impostor("echo 'no room left'; exit 1");
    const std::string error = errorOfStart();
    EXPECT_THAT(error, HasSubstr("it ended by itself"));
    EXPECT_THAT(error, HasSubstr("no room left"));
    EXPECT_THAT(temporary.entries(), Not(Contains(StartsWith("mergeloom-office"))));
}

TEST_F(LibreOfficeProcessTest, doesNotWaitForeverForAnOfficeThatDoesNotListen) {
    const Impostor impostor("trap '' TERM; sleep 60 & wait; wait");
    EXPECT_THAT(errorOfStart({300ms, 1s}), HasSubstr("did not answer within 1 second."));
    EXPECT_TRUE(becomesTrue([&] { return temporary.processes().empty(); }));
    EXPECT_THAT(temporary.entries(), Not(Contains(StartsWith("mergeloom-office"))));
}

/// Runs the body while an office writes into a folder. The names of the user's files in it begin like those
/// of the office.
template <typename Body>
void runWhileWriting(const LibreOfficeProcess& office, const std::string& folder, const Body& body) {
    const std::string beginning = "lu" + std::to_string(office.members().front());
    const auto put = [&](const std::string& name) { std::ofstream(joinPath(folder, name)) << name; };
    put(beginning + " budget.txt");
    put(beginning + "earlier.tmp");
    const PartialFileCleanup cleanup(office, joinPath(folder, "document.docx"));
    put("document.docx");
    put(beginning + "10i0y.tmp");
    put(beginning + "notes.txt");
    body();
}

std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename());
    return names;
}

bool holdsOnlyTheUsersFiles(const std::string& folder) {
    return ::testing::Matches(UnorderedElementsAre(EndsWith(" budget.txt"), EndsWith("earlier.tmp"),
                                                   EndsWith("notes.txt")))(namesIn(folder));
}

TEST_F(LibreOfficeProcessTest, aFailedSaveTakesNoFileOfTheUserAlong) {
    const TemporaryFolder folder;
    LibreOfficeSession session(files);
    const auto fail = [] { throw AutomationError(kFileCouldNotBeSaved, "The disk is full."); };
    EXPECT_THROW(runWhileWriting(session.process(), folder.path(), fail), AutomationError);
    EXPECT_TRUE(holdsOnlyTheUsersFiles(folder.path()));
}

/// This is the program that the next test starts and ends.
TEST(LibreOfficeOwner, DISABLED_holdsAnOffice) {
    MemoryFileStore files;
    LibreOfficeSession session(files);
    const std::string temporary = ::getenv("TMPDIR");
    const std::string folder = joinPath(temporary, "user");
    std::filesystem::create_directory(folder);
    runWhileWriting(session.process(), folder, [&] {
        std::ofstream(joinPath(temporary, "ready")) << "";
        ::pause();
    });
}

class LibreOfficeOwnerTest : public LibreOfficeProcessTest, public ::testing::WithParamInterface<int> {
  protected:
    pid_t startOwner() {
        std::string program = std::filesystem::read_symlink("/proc/self/exe");
        std::string filter = "--gtest_filter=LibreOfficeOwner.*";
        std::string disabled = "--gtest_also_run_disabled_tests";
        char* const arguments[] = {program.data(), filter.data(), disabled.data(), nullptr};
        pid_t owner = 0;
        EXPECT_EQ(::posix_spawn(&owner, program.c_str(), nullptr, nullptr, arguments, environ), 0);
        return owner;
    }
};

TEST_P(LibreOfficeOwnerTest, takesItsOfficeAlong) {
    const pid_t owner = startOwner();
    const bool isReady = becomesTrue([&] { return fileExists(temporary / "ready"); }, 60s);
    const std::vector<std::string> entries = temporary.entries();
    ::kill(owner, GetParam());
    ::waitpid(owner, nullptr, 0);
    ASSERT_TRUE(isReady);
    EXPECT_TRUE(becomesTrue([&] { return temporary.processes().empty(); }));
    EXPECT_TRUE(becomesTrue([&] { return temporary.entries().size() == 2; })) << "only what the owner made";
    EXPECT_TRUE(becomesTrue([&] { return holdsOnlyTheUsersFiles(temporary / "user"); }));
    for (const std::string& entry : entries) {
        const std::string pipeName = entry + "-" + std::to_string(owner);
        EXPECT_THAT(socketsOf(pipeName, temporary / entry), IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Signals, LibreOfficeOwnerTest, ::testing::Values(SIGTERM, SIGKILL));

}  // namespace

}  // namespace mergeloom::libreoffice
