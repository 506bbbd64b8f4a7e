#include "app/MappingBeforeDesigner.h"
#include "app/mCommandLine.h"
#include "app/modMainEntry.h"
#include "base/ConsoleOutput.h"
#include "doubles/ExcelFiles.h"
#include "doubles/RecordingMessages.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/WordFiles.h"
#include "libreoffice/OfficeProcesses.h"
#include "xml/RecordingErrorHandler.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>
#include <vector>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class EntryRoutine : public testing::Test {
  protected:
    void SetUp() override {
        folder.put("letter.xml",
                   "<db><Form Name='Letter' CurrentView='1'><Control Name='Customer'/></Form></db>");
        folder.put("design.xml", "<db><Form Name='Letter' CurrentView='0'/></db>");
    }

    /// Runs the program; "%" at an argument's start is replaced by the test's folder.
    int run(std::vector<std::string> arguments) {
        for (std::string& argument : arguments) {
            if (argument.starts_with("%")) argument.replace(0, 1, folder.path());
        }
        output.str("");
        errors.str("");
        return Main(arguments, {output, errors}, [this](std::span<const std::string> switches) {
            designed.emplace_back(switches.begin(), switches.end());
            return 0;
        });
    }

    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(folder / name);
    }

    TemporaryFolder folder;
    std::ostringstream output, errors;
    std::vector<std::vector<std::string>> designed;  ///< the switches of each start of the designer
};

TEST_F(EntryRoutine, MapsWithoutAUser) {
    EXPECT_EQ(run({"-hidden", "-xmlfile", "%/letter.xml", "-template", "%/letter.dotx"}), 0);
    EXPECT_TRUE(exists("letter.dotx"));
    EXPECT_TRUE(exists("letter.xml"));
    EXPECT_EQ(output.str() + errors.str(), "");
}

TEST_F(EntryRoutine, FailuresAreToldAndMayShowInTheStatus) {
    struct Case {
        std::vector<std::string> arguments;
        std::string expected;
    };
    const std::vector<Case> cases{
        {{"-hidden"}, "mergeloom: XML file is not defined.\n"},
        {{"-hidden", "-xmlfile", "%/design.xml", "-template", "%/new.dotx"},
         "mergeloom: Support for Design view is not realised yet.\n"},
        {{"-hidden", "-excel", "-label", "%/letter.xml", "-xmlfile", "%/letter.xml", "-template",
          "%/new.xltx"},
         "mergeloom: Excel makes no labels; leave out -label or make them with Word.\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(run(c.arguments), 0) << "the status stays 0 unless it is asked for";
        EXPECT_EQ(errors.str(), c.expected);
        std::vector<std::string> arguments = c.arguments;
        arguments.insert(arguments.begin(), "--exit-status");
        EXPECT_EQ(run(arguments), 1);
        EXPECT_FALSE(exists("new.dotx") || exists("new.xltx"));
    }
}

TEST_F(EntryRoutine, OnlyASuccessfulRunDeletesTheStructureDocument) {
    EXPECT_EQ(run({"-hidden", "-deletexmlfile", "-xmlfile", "%/letter.xml"}), 0);
    EXPECT_TRUE(exists("letter.xml"));
    run({"-hidden", "-deletexmlfile", "-xmlfile", "%/design.xml", "-template", "%/design.dotx"});
    EXPECT_TRUE(exists("design.xml"));
    run({"-hidden", "-deletexmlfile", "-xmlfile", "%/letter.xml", "-template", "%/letter.dotx"});
    EXPECT_TRUE(exists("letter.dotx"));
    EXPECT_FALSE(exists("letter.xml"));
}

TEST_F(EntryRoutine, NoRunDeletesADatabase) {
    folder.put("shop.accdb", "");
    folder.put("shop", std::string("SQLite format 3\0", 16));
    for (const std::string name : {"shop.accdb", "shop"}) {
        for (const std::string mode : {"-hidden", "-full"}) {
            EXPECT_EQ(run({mode, "-deletexmlfile", "-xmlfile", "%/" + name, "-template", "%/new.dotx"}), 1);
            EXPECT_EQ(errors.str(), "mergeloom: '" + (folder / name) +
                                        "' is a database, which is never deleted: leave out "
                                        "-deletexmlfile.\n");
            EXPECT_TRUE(exists(name));
        }
    }
    EXPECT_TRUE(designed.empty());
    EXPECT_EQ(run({"-xmlfile", "%/shop.accdb"}), 0);
    EXPECT_EQ(designed.size(), 1U);
}

TEST_F(EntryRoutine, WithoutHiddenTheDesignerIsStarted) {
    EXPECT_EQ(run({"--exit-status", "-xmlfile", "%/letter.xml"}), 0);
    EXPECT_THAT(designed, ElementsAre(ElementsAre("--exit-status", "-xmlfile", folder / "letter.xml")));

    // The designer makes the mapping before its window opens, since the user is there.
    run({"--object=Letter", "-fields", "-xmlfile", "%/design.xml", "-template", "%/design.dotx"});
    EXPECT_EQ(designed.size(), 2U);
    EXPECT_EQ(errors.str(), "");

    EXPECT_EQ(run({"--object=Letter", "-xmlfile", "%/letter.xml"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("add -hidden, or -fields"));
    EXPECT_EQ(designed.size(), 2U);
}

TEST_F(EntryRoutine, AMappingBeforeTheDesignerTellsItsUser) {
    const struct {
        std::string structure, template_;
        bool expected;
        std::string told;
    } cases[] = {
        {"letter.xml", "letter.dotx", true, ""},
        {"design.xml", "new.dotx", false, "Support for Design view is not realised yet.\n"},
        {"none.xml", "new.dotx", false, "XML file does not exist.\n"},
    };
    for (const auto& [structure, target, expected, told] : cases) {
        std::string commandLine;
        GetCommandLineArguments(CommandLineText::fromArguments(std::vector<std::string>{
                                    "-fields", "-xmlfile", folder / structure, "-template", folder / target}),
                                commandLine);
        RecordingMessages messages;
        RecordingErrorHandler reports;
        NoProgress progress;
        EXPECT_EQ(mapBeforeDesigner({}, reports, messages, progress), expected) << structure;
        EXPECT_EQ(messages.texts(), told);
        EXPECT_TRUE(reports.reports.empty());
        EXPECT_EQ(exists(target), expected);
    }
}

TEST_F(EntryRoutine, ListsObjects) {
    folder.put("many.xml",
               "<db><TABLE Name='A \"b\"' CurrentView='2'><Control Name='X'/><Control Name='S' "
               "ControlType='Subform'><Form><Control Name='Y'/></Form></Control></TABLE>"
               "<Control Name='Stray'/><Query Name='Bö'/><Form Name='C' CurrentView='9'/></db>");
    EXPECT_EQ(run({"--list-objects", "-xmlfile", "%/many.xml"}), 0);
    EXPECT_EQ(output.str(),
              "KIND   NAME   VIEW       CONTROLS\n"
              "Table  A \"b\"  Datasheet  3\n"
              "Query  Bö                0\n"
              "Form   C      9          0\n");
    EXPECT_EQ(run({"--list-objects", "--json", "-hidden", "-xmlfile", "%/many.xml"}), 0);
    EXPECT_EQ(
        output.str(),
        "[\n"
        "  {\"kind\": \"Table\", \"name\": \"A \\\"b\\\"\", \"view\": \"Datasheet\", \"controls\": 3},\n"
        "  {\"kind\": \"Query\", \"name\": \"Bö\", \"view\": null, \"controls\": 0},\n"
        "  {\"kind\": \"Form\", \"name\": \"C\", \"view\": \"9\", \"controls\": 0}\n"
        "]\n");
    EXPECT_EQ(run({"--list-objects"}), 1);
    EXPECT_EQ(errors.str(), "mergeloom: XML file is not defined.\n");
    EXPECT_EQ(run({"--list-objects", "-xmlfile", "%/none.xml"}), 1);
    EXPECT_EQ(errors.str(), "mergeloom: XML file does not exist.\n");
}

TEST_F(EntryRoutine, MapsAllObjects) {
    const std::string letter = "<Form Name='Letter' CurrentView='1'><Control Name='A'/></Form>";
    folder.put("all.xml", "<db>" + letter + "</db>");
    folder.put("some.xml", "<db>" + letter + "<Form Name='Raw' CurrentView='0'/></db>");
    std::filesystem::create_directory(folder / "a");
    std::filesystem::create_directory(folder / "b");
    EXPECT_EQ(run({"--exit-status", "--all", "%/a", "-xmlfile", "%/all.xml", "-deletexmlfile"}), 0);
    EXPECT_EQ(output.str() + errors.str(), "");
    EXPECT_TRUE(exists("a/Letter.dotx"));
    EXPECT_FALSE(exists("all.xml"));
    EXPECT_EQ(run({"--exit-status", "--all", "%/b", "-xmlfile", "%/some.xml", "-deletexmlfile"}), 1);
    EXPECT_TRUE(exists("b/Letter.dotx"));
    EXPECT_TRUE(exists("some.xml"));
    EXPECT_EQ(run({"--all", "%/b", "-xmlfile", "%/some.xml"}), 0) << "the status is not asked for";
}

TEST_F(EntryRoutine, ListsPlaces) {
    const std::string place = "<w:bookmarkStart w:id=\"1\" w:name=\"";
    folder.put("places.docx", wordFile("<w:p>" + place +
                                       "Zwölf\"/><w:r><w:t>a \"b\"</w:t></w:r></w:p><w:p><w:bookmarkEnd "
                                       "w:id=\"1\"/>" +
                                       place + "A\"/><w:bookmarkEnd w:id=\"1\"/></w:p>"));
    EXPECT_EQ(run({"--places", "%/places.docx"}), 0);
    EXPECT_EQ(output.str(),
              "NAME   KIND      WHERE     TEXT\n"
              "Zwölf  bookmark  body 0-6  a \"b\"\u00B6\n"
              "A      bookmark  body 6-6  \n");
    EXPECT_EQ(run({"--places", "%/places.docx", "--json"}), 0);
    EXPECT_EQ(output.str(),
              "[\n"
              "  {\"name\": \"Zwölf\", \"kind\": \"bookmark\", \"text\": \"a \\\"b\\\"\\u000d\", "
              "\"story\": \"body\", \"start\": 0, \"end\": 6},\n"
              "  {\"name\": \"A\", \"kind\": \"bookmark\", \"text\": \"\", "
              "\"story\": \"body\", \"start\": 6, \"end\": 6}\n"
              "]\n");
    EXPECT_EQ(run({"--places", "%/none.docx"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("none.docx"));
    EXPECT_EQ(output.str(), "");
}

TEST_F(EntryRoutine, MapsIntoAWorkbook) {
    EXPECT_EQ(
        run({"--exit-status", "-excel", "-hidden", "-xmlfile", "%/letter.xml", "-template", "%/o.xltx"}), 0);
    EXPECT_EQ(output.str() + errors.str(), "");
    EXPECT_EQ(run({"--places", "%/o.xltx"}), 0);
    EXPECT_EQ(output.str(),
              "NAME         KIND  WHERE        TEXT\n"
              "ammCustomer  name  Sheet1!$B$1  [Customer]\n");
}

TEST_F(EntryRoutine, ListsThePlacesOfAWorkbook) {
    const std::string cells =
        "<sheetData><row r=\"3\"><c r=\"B3\"><v>7</v></c><c r=\"C3\" t=\"inlineStr\"><is><t>a \"b\"</t></is>"
        "</c></row></sheetData>";
    const std::string names =
        "<definedNames><definedName name=\"Rate\">0.25</definedName>"
        "<definedName name=\"Later\">'My Sheet'!$C$3</definedName>"
        "<definedName name=\"First\" localSheetId=\"1\">Data!$C$3:$D$4</definedName>"
        "<definedName name=\"Lost\">#REF!</definedName>"
        "<definedName name=\"Unseen\" hidden=\"1\">Data!$A$1</definedName>"
        "<definedName name=\"Before\">Data!$B$3</definedName>"
        "<definedName name=\"Aside\">Data!$C$3</definedName>"
        "<definedName name=\"Upper\">Data!$Z$2</definedName></definedNames>";
    folder.put("places.XLSX", workbookFile({{"Data", cells}, {"My Sheet", cells}}, names));
    EXPECT_EQ(run({"--places", "%/places.XLSX"}), 0) << errors.str();
    EXPECT_EQ(output.str(),
              "NAME            KIND  WHERE            TEXT\n"
              "Upper           name  Data!$Z$2        \n"
              "Before          name  Data!$B$3        7\n"
              "Aside           name  Data!$C$3        a \"b\"\n"
              "My Sheet!First  name  Data!$C$3:$D$4   a \"b\"\n"
              "Later           name  'My Sheet'!$C$3  a \"b\"\n"
              "Lost            name  =#REF!           \n"
              "Rate            name  =0.25            \n");
    EXPECT_EQ(run({"--json", "--places", "%/places.XLSX"}), 0);
    EXPECT_THAT(
        output.str(),
        HasSubstr("\n  {\"name\": \"Before\", \"kind\": \"name\", \"text\": \"7\", "
                  "\"refersTo\": \"=Data!$B$3\", \"sheet\": \"Data\", \"row\": 3, \"column\": 2},\n"));
    EXPECT_THAT(
        output.str(),
        HasSubstr("\n  {\"name\": \"Rate\", \"kind\": \"name\", \"text\": \"\", \"refersTo\": \"=0.25\", "
                  "\"sheet\": null, \"row\": null, \"column\": null}\n]\n"));
    EXPECT_EQ(run({"--places", "%/none.xlsx"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("none.xlsx"));

    // Both offices have files with this extension, and only Word's would be converted.
    const Variable withoutConverter("MERGELOOM_SOFFICE", "/nowhere/soffice");
    folder.put("book.xml", workbookFile({{"Data"}}));
    EXPECT_EQ(run({"--places", "%/book.xml"}), 1);
    EXPECT_THAT(errors.str(), testing::AllOf(HasSubstr("book.xml'"), HasSubstr("Choose docx otherwise.")));
}

TEST_F(EntryRoutine, ListsThePicturesOfAWorkbook) {
    std::filesystem::copy_file(MERGELOOM_SAMPLES "/pictures/letterhead.png", folder / "logo.png");
    folder.put("logo.xml",
               "<db><Form Name='F' CurrentView='1'><Control Name='Logo' ControlType='BoundObjectFrame' "
               "Image='logo.png'/></Form></db>");
    const struct {
        std::string sheet, written;
    } cases[] = {{"Data_1", "Data_1"}, {"Bob's data", "'Bob''s data'"}, {"1st", "'1st'"}};
    for (const auto& [sheet, written] : cases) {
        folder.put("book.xlsx", workbookFile({{sheet}}));
        run({"-excel", "-hidden", "-xmlfile", "%/logo.xml", "-usedocument", "%/book.xlsx"});
        ASSERT_EQ(errors.str(), "");
        EXPECT_EQ(run({"--places", "%/book.xlsx"}), 0);
        const std::string cell = written + "!$B$1  \n";
        std::string lines = "\nammLogo  name     " + cell;
        lines += "ammLogo  picture  " + cell;
        EXPECT_THAT(output.str(), testing::EndsWith(lines));
    }
    EXPECT_EQ(run({"--json", "--places", "%/book.xlsx"}), 0);
    EXPECT_THAT(output.str(), HasSubstr("\"kind\": \"picture\", \"text\": \"\", \"refersTo\": null, "
                                        "\"sheet\": \"1st\", \"row\": 1, \"column\": 2}"));
}

TEST_F(EntryRoutine, ConvertsNoFieldsOfAWorkbook) {
    const std::string book = workbookFile({{"Data"}});
    folder.put("book.xlsx", book);
    EXPECT_EQ(run({"--convert-fields", "%/book.xlsx"}), 1);
    EXPECT_THAT(errors.str(), testing::AllOf(HasSubstr("book.xlsx"), HasSubstr("Word document")));
    EXPECT_EQ(folder.bytesOf("book.xlsx"), book);
}

TEST_F(EntryRoutine, AnswersOptions) {
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_THAT(output.str(), testing::StartsWith("mergeloom "));
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_THAT(output.str(), HasSubstr("-template"));
    EXPECT_EQ(run({"--nonsense"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("--nonsense"));
}

}  // namespace
}  // namespace mergeloom
