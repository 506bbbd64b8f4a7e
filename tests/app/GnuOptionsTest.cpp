#include "app/GnuOptions.h"
#include "app/mCommandLine.h"
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
    EXPECT_EQ(some.exitStatus, ExitStatus::ShowsFailure);
    EXPECT_EQ(some.firstArgument, 3U);
    EXPECT_EQ(read({"--office=libreoffice", "--office=embedded"}).office, OfficeChoice::Embedded);
    EXPECT_EQ(read({"--office=installed"}).office, OfficeChoice::Installed);
    const GnuOptions traced = read({"--office=com", "--trace-calls", "calls.log"});
    EXPECT_EQ(traced.office, OfficeChoice::Com);
    EXPECT_EQ(traced.traceFile, "calls.log");
}

TEST(GnuOptions, ChooseTheTask) {
    EXPECT_EQ(read({"--help", "--nonsense"}).task, Task::ShowHelp);
    EXPECT_EQ(read({"--version"}).task, Task::ShowVersion);
    const GnuOptions text = read({"--places", "--odd.docx"});
    EXPECT_EQ(text.task, Task::ListPlaces);
    EXPECT_EQ(text.placesFile, "--odd.docx");
    EXPECT_EQ(text.listFormat, ListFormat::Text);
    const GnuOptions json = read({"--json", "--places=a=b.docx"});
    EXPECT_EQ(json.placesFile, "a=b.docx");
    EXPECT_EQ(json.listFormat, ListFormat::Json);
    const GnuOptions objects = read({"--json", "--list-objects", "-xmlfile", "a.xml"});
    EXPECT_EQ(objects.task, Task::ListObjects);
    EXPECT_EQ(objects.firstArgument, 2U);
    const GnuOptions all = read({"--all", "--odd", "--format=.docx", "--at", "end", "-excel"});
    EXPECT_EQ(all.task, Task::MapAll);
    EXPECT_EQ(all.mapping.folder, "--odd");
    EXPECT_EQ(all.mapping.format, "docx");
    EXPECT_EQ(all.mapping.at, "end");
    EXPECT_EQ(read({"--object", "Form Orders"}).mapping.object, "Form Orders");
    const GnuOptions fields = read({"--output", "b.docx", "--convert-fields=a.docx"});
    EXPECT_EQ(fields.task, Task::ConvertFields);
    EXPECT_EQ(fields.fieldsFile, "a.docx");
    EXPECT_EQ(fields.outputFile, "b.docx");
}

TEST(GnuOptions, FillATemplate) {
    const GnuOptions plain =
        read({"--fill", "t.docx", "--data=d.xml", "--output", "{No}.docx", "--object", "Orders"});
    EXPECT_EQ(plain.task, Task::Fill);
    EXPECT_EQ(plain.fill.templateFile, "t.docx");
    EXPECT_EQ(plain.fill.dataFile, "d.xml");
    EXPECT_EQ(plain.fill.output, "{No}.docx");
    EXPECT_EQ(plain.fill.object, "Orders");
    EXPECT_EQ(plain.fill.firstRecord, 1U);
    EXPECT_EQ(plain.fill.lastRecord, FillOptions::kLastOfAll);
    EXPECT_EQ(plain.fill.strictness, Strictness::ToleratesDifferences);
    const GnuOptions all = read({"--fill=t", "--data=d", "--output=o", "--records", "3-5", "--one-document",
                                 "--strict", "--drop-empty-tables"});
    EXPECT_EQ(all.fill.firstRecord, 3U);
    EXPECT_EQ(all.fill.lastRecord, 5U);
    EXPECT_EQ(all.fill.use, letters::LetterUse::OneForAll);
    EXPECT_EQ(all.fill.emptyTables, letters::EmptyTables::Remove);
    EXPECT_EQ(all.fill.strictness, Strictness::RefusesDifferences);
    EXPECT_EQ(read({"--fill=t", "--data=d", "--output=o", "--record=4"}).fill.lastRecord, 4U);
}

TEST(GnuOptions, SayWhatIsWrong) {
    struct Case {
        std::vector<std::string> arguments;
        std::string sentence;
    };
    const std::vector<Case> cases = {
        {{"--fill", "t.docx", "--output", "o.docx"}, "Option '--fill' needs '--data FILE'."},
        {{"--fill", "t.docx", "--data", "d.xml"}, "Option '--fill' needs '--output FILE'."},
        {{"--strict"}, "Option '--strict' needs '--fill TEMPLATE'."},
        {{"--fill=t", "--data=d", "--output=o", "--record", "0"},
         "Option '--record' does not take '0': records are numbered from 1."},
        {{"--fill=t", "--data=d", "--output=o", "--records", "5-3"},
         "Option '--records' does not take '5-3': records are numbered from 1, such as 1-500."},
        {{"--fill=t", "--data=d", "--output=o", "--records", "5"},
         "Option '--records' does not take '5': records are numbered from 1, such as 1-500."},
        {{"--fill=t", "--data=d", "--output=o", "--office=libreoffice"},
         "Only the embedded office fills templates; leave out '--office'."},
        {{"--fill=t", "--data=d", "--output=o", "-hidden"}, "'-hidden' has no meaning behind '--fill'."},
        {{"--nonsense"}, "Unknown option '--nonsense'."},
        {{"--"}, "Unknown option '--'."},
        {{"--helpme"}, "Unknown option '--helpme'."},
        {{"--json=1"}, "Unknown option '--json=1'."},
        {{"--places"}, "Option '--places' needs a file."},
        {{"--places="}, "Option '--places' needs a file."},
        {{"--office=word"}, "Unknown office 'word': it is 'embedded', 'libreoffice', 'com' or 'installed'."},
        {{"--office="}, "Option '--office' needs 'embedded', 'libreoffice', 'com' or 'installed'."},
        {{"--trace-calls=f", "--office=installed"}, "Option '--trace-calls' needs '--office=com'."},
        {{"--fill=t", "--data=d", "--output=o", "--office=com"},
         "Only the embedded office fills templates; leave out '--office'."},
        {{"--json", "-hidden"},
         "Option '--json' needs '--places FILE', '--list-objects' or '--check TEMPLATE'."},
        {{"--json", "--all=a"},
         "Option '--json' needs '--places FILE', '--list-objects' or '--check TEMPLATE'."},
        {{"--object"}, "Option '--object' needs an object's name."},
        {{"--all", ""}, "Option '--all' needs a folder."},
        {{"--all=a", "--object=b"}, "Options '--object' and '--all' cannot stand together."},
        {{"--records=1-2", "--record=1"}, "Options '--records' and '--record' cannot stand together."},
        {{"--all=a", "--list-objects"}, "Options '--all' and '--list-objects' cannot stand together."},
        {{"--at=end", "--list-objects"}, "Options '--at' and '--list-objects' cannot stand together."},
        {{"--format=docx"}, "Option '--format' needs '--all FOLDER'."},
        {{"--places", "a.docx", "b.docx"}, "'b.docx' has no meaning behind '--places'."},
        {{"--convert-fields", "a.docx", "b.docx"}, "'b.docx' has no meaning behind '--convert-fields'."},
        {{"--places=a", "--convert-fields=a"},
         "Options '--places' and '--convert-fields' cannot stand together."},
        {{"--output", "a.docx", "-hidden"},
         "Option '--output' needs '--convert-fields FILE' or '--fill TEMPLATE'."},
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

TEST(GnuOptions, HaveAHelp) {
    const std::string help = helpText();
    for (const std::string_view name : split(kSwitchNames, ';')) {
        EXPECT_THAT(help, HasSubstr("\n  -" + std::string(name) + " "));
    }
    for (const char* option :
         {"--object NAME", "--at PLACE", "--all FOLDER", "--format EXT", "--list-objects", "--places FILE",
          "--json", "--convert-fields FILE", "--output FILE", "--office=NAME", "--trace-calls FILE",
          "--exit-status", "--version", "--help"}) {
        EXPECT_THAT(help, HasSubstr(option));
    }
    for (const std::string_view line : split(help, '\n'))
        EXPECT_LE(line.size(), 80U) << line;
    EXPECT_THAT(versionText(), testing::MatchesRegex("mergeloom [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

}  // namespace
}  // namespace mergeloom
