#include "doubles/ChangedVariable.h"
#include "doubles/TemporaryFolder.h"
#include "ui/services/ProblemReport.h"

#include <gmock/gmock.h>

#include <QUrl>
#include <QUrlQuery>

namespace mergeloom {
namespace {

using testing::HasSubstr;

ProblemCircumstances circumstances() {
    return {.time = "2024-05-06T07:08:09Z",
            .programVersion = "Mergeloom 1.2",
            .qtVersion = "6.4.2",
            .officeBuild = "7.4.7",
            .system = "Debian, x86_64",
            .locale = "de_DE",
            .homeFolders = {"/home/ann", "/data/ann"}};
}

TEST(ProblemReport, ALineForEachFact) {
    EXPECT_EQ(problemReportText({0x80040201, "First.\r\nSecond.", "Bookmark Name = 'x'", "frmMain",
                                 "Form_Load", "ui/designer/frmMain.cpp:7"},
                                circumstances()),
              "Time: 2024-05-06T07:08:09Z\n"
              "Program: Mergeloom 1.2\n"
              "Qt: 6.4.2\n"
              "Office: 7.4.7\n"
              "System: Debian, x86_64\n"
              "Locale: de_DE\n"
              "Error number: 0x80040201\n"
              "Description: First.\n"
              "  Second.\n"
              "Module: frmMain\n"
              "Procedure: Form_Load\n"
              "Place: ui/designer/frmMain.cpp:7\n"
              "Comment: Bookmark Name = 'x'\n");
}

TEST(ProblemReport, WhatIsNotKnown) {
    const std::string text = problemReportText({}, {});
    for (const char* line :
         {"Time: unknown\n", "Office: unknown\n", "Error number: 0\n", "Module: unknown\n"})
        EXPECT_THAT(text, HasSubstr(line));
    EXPECT_THAT(text, testing::Not(HasSubstr("Comment")));
}

TEST(ProblemReport, TheHomeFolderIsNotNamed) {
    const std::pair<std::string, std::string> cases[] = {{"'/home/ann/a.docx'", "'~/a.docx'"},
                                                         {"/data/ann/x /home/ann", "~/x ~"},
                                                         {"/home/anna/x", "/home/anna/x"},
                                                         {"/home/ann-marie", "/home/ann-marie"},
                                                         {"/home/ann.", "~."},
                                                         {"file:///home/ann/x", "file://~/x"},
                                                         {"/home/annü", "/home/annü"}};
    for (const auto& [description, expected] : cases) {
        EXPECT_THAT(problemReportText({1, description, "", "", ""}, circumstances()),
                    HasSubstr("\nDescription: " + expected + "\n"));
    }
    ProblemCircumstances root = circumstances();
    root.homeFolders = {"/", ""};
    EXPECT_THAT(problemReportText({1, "/x/y", "", "", ""}, root), HasSubstr(": /x/y\n"));
}

TEST(ProblemReport, TheCircumstancesOfThisRun) {
    const TemporaryFolder home;
    const ChangedVariable variable("HOME", home.path());
    const ProblemCircumstances now = currentCircumstances();
    EXPECT_THAT(now.time, testing::MatchesRegex("[0-9]+-[0-9]+-[0-9]+T[0-9:]+Z"));
    EXPECT_THAT(now.programVersion, testing::StartsWith("Mergeloom "));
    EXPECT_THAT(now.qtVersion, testing::StartsWith("6."));
    EXPECT_FALSE(now.system.empty());
    EXPECT_FALSE(now.locale.empty());
    EXPECT_THAT(problemReportText({1, "In " + (home / "x"), "", "", ""}, now), HasSubstr("In ~/x\n"));
}

TEST(ProblemReport, IsKeptWithTheNewestOnes) {
    const TemporaryFolder folder;
    folder.put("other.txt", "stays");
    std::string first;
    std::string last;
    for (int number = 1; number <= 25; ++number) {
        last = saveProblemReport("report " + std::to_string(number), folder.path());
        if (number == 1) first = last;
    }
    EXPECT_EQ(folder.entryCount(), 21);
    EXPECT_FALSE(std::filesystem::exists(first));
    EXPECT_EQ(folder.bytesOf(std::filesystem::path(last).filename().string()), "report 25");
    EXPECT_EQ(folder.bytesOf("other.txt"), "stays");

    EXPECT_NO_THROW(saveProblemReport("text", folder / "new/folder"));
    try {
        saveProblemReport("text", folder / "other.txt");
        FAIL() << "a file is no folder";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kFileCouldNotBeSaved);
        EXPECT_THAT(error.description(), HasSubstr(folder / "other.txt"));
    }
}

TEST(ProblemReport, Mail) {
    const QUrl link(QString::fromStdString(problemMailLink("help@example.org", "A & B: 100 %\nü=?#\n")),
                    QUrl::StrictMode);
    EXPECT_TRUE(link.isValid());
    EXPECT_EQ(link.scheme(), QStringLiteral("mailto"));
    EXPECT_EQ(link.path(), QStringLiteral("help@example.org"));
    const QUrlQuery query(link);
    EXPECT_EQ(query.queryItemValue(QStringLiteral("body"), QUrl::FullyDecoded),
              QStringLiteral("A & B: 100 %\r\nü=?#\r\n"));
    EXPECT_EQ(query.queryItemValue(QStringLiteral("subject"), QUrl::FullyDecoded),
              QStringLiteral("Mergeloom problem report"));
}

}  // namespace
}  // namespace mergeloom
