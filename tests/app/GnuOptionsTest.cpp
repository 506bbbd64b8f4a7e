#include "app/CommandLineSwitches.h"
#include "app/GnuOptions.h"
#include "base/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using testing::HasSubstr;

GnuOptions read(const std::vector<std::string>& arguments) {
    return readGnuOptions(arguments);
}

TEST(GnuOptions, StandBeforeTheSwitches) {
    const GnuOptions none = read({"-hidden", "--json"});
    EXPECT_EQ(none.task, Task::Map);
    EXPECT_EQ(none.office, OfficeChoice::Embedded);
    EXPECT_EQ(none.exitStatus, ExitStatus::AlwaysZero);
    EXPECT_EQ(none.firstArgument, 0U);

    const GnuOptions some = read({"--office", "libreoffice", "--exit-status", "-xmlfile", "--help"});
    EXPECT_EQ(some.task, Task::Map);
    EXPECT_EQ(some.office, OfficeChoice::LibreOffice);
    EXPECT_EQ(some.exitStatus, ExitStatus::TellsFailure);
    EXPECT_EQ(some.firstArgument, 3U);
    EXPECT_EQ(read({"--office=libreoffice", "--office=embedded"}).office, OfficeChoice::Embedded);
}

TEST(GnuOptions, ChooseTheTask) {
    EXPECT_EQ(read({"--help", "--nonsense"}).task, Task::ShowHelp);
    EXPECT_EQ(read({"--version"}).task, Task::ShowVersion);
    const GnuOptions text = read({"--places", "--odd.docx"});
    EXPECT_EQ(text.task, Task::ListPlaces);
    EXPECT_EQ(text.placesFile, "--odd.docx");
    EXPECT_EQ(text.placesFormat, PlacesFormat::Text);
    const GnuOptions json = read({"--json", "--places=a=b.docx"});
    EXPECT_EQ(json.placesFile, "a=b.docx");
    EXPECT_EQ(json.placesFormat, PlacesFormat::Json);
    const GnuOptions fields = read({"--output", "b.docx", "--convert-fields=a.docx"});
    EXPECT_EQ(fields.task, Task::ConvertFields);
    EXPECT_EQ(fields.fieldsFile, "a.docx");
    EXPECT_EQ(fields.outputFile, "b.docx");
}

TEST(GnuOptions, SayWhatIsWrong) {
    struct Case {
        std::vector<std::string> arguments;
        std::string sentence;
    };
    const std::vector<Case> cases = {
        {{"--nonsense"}, "Unknown option '--nonsense'."},
        {{"--"}, "Unknown option '--'."},
        {{"--helpme"}, "Unknown option '--helpme'."},
        {{"--json=1"}, "Unknown option '--json=1'."},
        {{"--places"}, "Option '--places' needs a file."},
        {{"--places="}, "Option '--places' needs a file."},
        {{"--office=word"}, "Unknown office 'word': it is 'embedded' or 'libreoffice'."},
        {{"--office="}, "Option '--office' needs 'embedded' or 'libreoffice'."},
        {{"--json", "-hidden"}, "Option '--json' needs '--places FILE'."},
        {{"--places", "a.docx", "b.docx"}, "'b.docx' has no meaning behind '--places'."},
        {{"--convert-fields", "a.docx", "b.docx"}, "'b.docx' has no meaning behind '--convert-fields'."},
        {{"--places=a", "--convert-fields=a"},
         "Options '--places' and '--convert-fields' cannot stand together."},
        {{"--output", "a.docx", "-hidden"}, "Option '--output' needs '--convert-fields FILE'."},
    };
    for (const Case& one : cases) {
        try {
            read(one.arguments);
            ADD_FAILURE() << one.sentence;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kOptionNotUnderstood);
            EXPECT_THAT(error.description(), testing::StartsWith(one.sentence + " "));
        }
    }
}

TEST(GnuOptions, HaveAHelpOfOneScreen) {
    const std::string help = helpText();
    for (const std::string_view name : split(kSwitchNames, ';')) {
        EXPECT_THAT(help, HasSubstr("\n  -" + std::string(name) + " "));
    }
    for (const char* option : {"--places FILE", "--json", "--convert-fields FILE", "--output FILE",
                               "--office=NAME", "--exit-status", "--version", "--help"}) {
        EXPECT_THAT(help, HasSubstr(option));
    }
    const std::vector<std::string_view> lines = split(help, '\n');
    EXPECT_LE(lines.size(), 25U);
    for (const std::string_view line : lines)
        EXPECT_LE(line.size(), 80U) << line;
    EXPECT_THAT(versionText(), testing::MatchesRegex("mergeloom [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

}  // namespace
}  // namespace mergeloom
