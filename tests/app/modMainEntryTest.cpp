#include "app/modMainEntry.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/WordFiles.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>
#include <vector>

namespace mergeloom {
namespace {

using testing::HasSubstr;

class EntryRoutine : public testing::Test {
  protected:
    void SetUp() override {
        folder.put("letter.xml",
                   "<db><Form Name='Letter' CurrentView='1'><Control Name='Customer'/></Form></db>");
        folder.put("design.xml", "<db><Form Name='Letter' CurrentView='0'/></db>");
    }

    /// Runs the program; "%" at an argument's start stands for the test's folder.
    int run(std::vector<std::string> arguments) {
        for (std::string& argument : arguments) {
            if (argument.starts_with("%")) argument.replace(0, 1, folder.path());
        }
        output.str("");
        errors.str("");
        return Main(arguments, {output, errors});
    }

    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(folder / name);
    }

    TemporaryFolder folder;
    std::ostringstream output, errors;
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

TEST_F(EntryRoutine, TheDesignerIsNotThereYet) {
    EXPECT_EQ(run({"-xmlfile", "%/letter.xml"}), 1);
    EXPECT_THAT(errors.str(), HasSubstr("The designer is not available yet."));

    // A mapping that the designer would follow is made all the same; one that fails keeps silent.
    EXPECT_EQ(run({"-fields", "-xmlfile", "%/letter.xml", "-template", "%/letter.dotx"}), 1);
    EXPECT_TRUE(exists("letter.dotx"));
    EXPECT_THAT(errors.str(), HasSubstr("The designer is not available yet."));
    run({"-fields", "-xmlfile", "%/design.xml", "-template", "%/design.dotx"});
    EXPECT_EQ(errors.str(), "mergeloom: Support for Design view is not realised yet.\n");
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
